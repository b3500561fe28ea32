#include <dlfcn.h>
#include <gtest/gtest.h>

#include "platform/component/class_registry.h"
#include "support/schema_test.h"

namespace tessel::test {

namespace {

TEST(ComponentServer, StartsTheEditorByNameAlone) {
    TemporaryFolder folder;
    std::filesystem::create_directories(folder / "Projects/Demo");
    ClassRegistry classes;
    classes.LoadComponent(TESSEL_COMPONENT_SERVER);
    auto frontend = std::make_shared<FakeFrontend>(folder.Path(), TESSEL_SHARE);
    Arguments start{std::shared_ptr<Object>(frontend), "", Null{}};
    EXPECT_EQ(classes.Create("tessel.tesselengine")->Call("Run", CallKind::Method, start), Value(0));

    auto workspace = classes.Create("Tessel.VNTWS");
    Arguments name{"1 NEW"};
    EXPECT_EQ(workspace->Call("GetFreeTableName", CallKind::Method, name), Value("NEW"));
    Arguments tool{"x"};
    workspace->Call("MethodID", CallKind::Put, tool);
    Arguments none;
    EXPECT_EQ(classes.Create("Tessel.VNTWS")->Call("MethodID", CallKind::Get, none), Value("x"));
}

TEST(ComponentServer, ExportsTheFourEntryPoints) {
    void* library = dlopen(TESSEL_COMPONENT_SERVER, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library, nullptr) << dlerror();
    const auto entry = [&](const char* name) { return dlsym(library, name); };
    const auto enter = reinterpret_cast<decltype(&TesselRegisterServer)>(entry("TesselRegisterServer"));
    const auto leave = reinterpret_cast<decltype(&TesselUnregisterServer)>(entry("TesselUnregisterServer"));
    const auto make = reinterpret_cast<decltype(&TesselGetClassObject)>(entry("TesselGetClassObject"));
    ASSERT_TRUE(enter && leave && make && entry("TesselCanUnloadNow"));

    ClassRegistry classes;
    EXPECT_EQ(enter(&classes), 0);
    EXPECT_NE(classes.Create("Tessel.TesselEngine"), nullptr);
    EXPECT_EQ(leave(&classes), 0);
    EXPECT_THROW((void)classes.Create("Tessel.TesselEngine"), Error);

    std::shared_ptr<Object> object;
    EXPECT_EQ(make("Tessel.Nothing", &object), 1);
    EXPECT_EQ(make("Tessel.VNTWS", &object), 0);
    EXPECT_NE(object, nullptr);
    object.reset();
    dlclose(library);
}

TEST(ComponentServer, KeepsCountOfItsObjects) {
    void* library = dlopen(TESSEL_COMPONENT_SERVER, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library, nullptr) << dlerror();
    const auto make =
        reinterpret_cast<decltype(&TesselGetClassObject)>(dlsym(library, "TesselGetClassObject"));
    const auto canUnload =
        reinterpret_cast<decltype(&TesselCanUnloadNow)>(dlsym(library, "TesselCanUnloadNow"));
    const int before = canUnload();
    std::shared_ptr<Object> object;
    ASSERT_EQ(make("Tessel.TesselEngine", &object), 0);
    EXPECT_EQ(canUnload(), 1);
    object.reset();
    EXPECT_EQ(canUnload(), before);
    dlclose(library);
}

TEST(ClassRegistry, SaysWhyALibraryDoesNotLoad) {
    ClassRegistry classes;
    for (const char* path : {"/nowhere/lib.so", "libc.so.6"}) {
        try {
            classes.LoadComponent(path);
            ADD_FAILURE() << path;
        } catch (const Error& error) {
            EXPECT_EQ(error.Kind(), ErrorKind::Component);
            EXPECT_NE(std::string(error.what()).find(path), std::string::npos);
        }
    }
}

}  // namespace

}  // namespace tessel::test

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
}

class Refusing : public ClassTable {
  public:
    void Add(const std::string&, Factory) override { throw 7; }
    void Remove(const std::string&) override { throw 7; }
};

TEST(ComponentServer, ExportsTheFourEntryPointsAndKeepsCountOfItsObjects) {
    void* library = dlopen(TESSEL_COMPONENT_SERVER, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library, nullptr) << dlerror();
    const auto entry = [&](const char* name) { return dlsym(library, name); };
    const auto enter = reinterpret_cast<decltype(&TesselRegisterServer)>(entry("TesselRegisterServer"));
    const auto leave = reinterpret_cast<decltype(&TesselUnregisterServer)>(entry("TesselUnregisterServer"));
    const auto make = reinterpret_cast<decltype(&TesselGetClassObject)>(entry("TesselGetClassObject"));
    const auto canUnload = reinterpret_cast<decltype(&TesselCanUnloadNow)>(entry("TesselCanUnloadNow"));
    ASSERT_TRUE(enter && leave && make && canUnload);
    const int before = canUnload();

    ClassRegistry classes;
    EXPECT_EQ(enter(&classes), 0);
    EXPECT_NE(classes.Create("Tessel.TesselEngine"), nullptr);
    EXPECT_EQ(leave(&classes), 0);
    EXPECT_THROW((void)classes.Create("Tessel.TesselEngine"), Error);

    Refusing refusing;
    EXPECT_EQ(enter(&refusing), 1);
    EXPECT_EQ(leave(&refusing), 1);

    std::shared_ptr<Object> object;
    EXPECT_EQ(make("Tessel.Nothing", &object), 1);
    EXPECT_EQ(make("Tessel.VNTWS", &object), 0);
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

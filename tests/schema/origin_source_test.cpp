#include "schema/origin_source.h"

#include "schema/object_date.h"
#include "support/schema_test.h"

namespace tessel::test {

namespace {

class OriginSources : public SchemaTest {
  protected:
    OriginSources() {
        for (const char* file : {"a.txt", "broken.txt"}) files::ReplaceFile(folder / file, "x");
        for (const char* file : {"a.txt", "broken.txt", "gone.txt", ""}) Add("PROGRAM", file);
        port = Add("DATAPORT", "a.txt");
    }
    std::shared_ptr<FakeObject> Add(const std::string& type, const std::string& lumivex) {
        auto object = frontend->repository->Add(type, lumivex);
        object->attributes["Lumivex"] = lumivex;
        return object;
    }
    bool Locate(std::string identifier) { return LocateOriginSource(origin, *frontend, identifier); }
    std::string Id(std::size_t index) { return frontend->repository->objects.at(index)->Identifier(); }
    std::string LoadOf(const char* file) { return "load " + folder.Path() + "\\" + file; }

    OriginSourceState origin;
    std::shared_ptr<FakeObject> port;
};

TEST_F(OriginSources, LoadsOnceAndReleases) {
    EXPECT_TRUE(Locate(Id(1)));
    EXPECT_TRUE(Locate(Id(1)));
    EXPECT_EQ(origin.path, folder.Path() + "\\a.txt");
    EXPECT_FALSE(Locate(Id(2)));  // does not load
    EXPECT_EQ(origin.path, "");
    EXPECT_FALSE(Locate(Id(2)));
    EXPECT_FALSE(Locate(Id(3)));
    EXPECT_TRUE(Locate(Id(1)));
    EXPECT_FALSE(Locate(Id(4)));  // has no file: the earlier source stays, but is not its own
    EXPECT_FALSE(Locate(Id(4)));
    EXPECT_EQ(origin.path, "");
    EXPECT_EQ(frontend->loads.back(), LoadOf("a.txt"));
    EXPECT_FALSE(Locate(""));
    EXPECT_EQ(frontend->loads, (std::vector<std::string>{LoadOf("a.txt"), "close", LoadOf("broken.txt"),
                                                         LoadOf("a.txt"), "close"}));
    EXPECT_THROW((void)Locate("unknown"), Error);
}

TEST_F(OriginSources, FollowsADataPortToItsReaderOrElseItsWriter) {
    std::string identifier = port->Identifier();
    EXPECT_TRUE(Locate(Id(1)));
    EXPECT_FALSE(Locate(identifier));  // nothing reads or writes it
    EXPECT_TRUE(Locate(Id(1)));
    EXPECT_EQ(frontend->loads.size(), 1U);
    port->related["IsWrittenIn"] = {frontend->repository->ObjectById(Id(1))};
    EXPECT_TRUE(LocateOriginSource(origin, *frontend, identifier));
    EXPECT_EQ(identifier, Id(1));
    port->related["IsReadIn"] = {frontend->repository->ObjectById(Id(3))};
    EXPECT_FALSE(Locate(port->Identifier()));
    EXPECT_EQ(origin.lastIdentifier, Id(3));
}

TEST_F(OriginSources, DatesAnObjectByItsLastChange) {
    auto object = Add("TABLE", "");
    object->attributes["Created"] = "2026-01-01";
    object->attributes["Modified"] = "";
    EXPECT_EQ(FormatIso(ObjectDate(*object)), "2026-01-01T00:00:00");
    object->attributes["Modified"] = "2026-02-03T04:05:06";
    EXPECT_EQ(FormatIso(ObjectDate(*object)), "2026-02-03T04:05:06");
    object->attributes["Modified"] = "yesterday";
    EXPECT_THROW((void)ObjectDate(*object), Error);
}

}  // namespace

}  // namespace tessel::test

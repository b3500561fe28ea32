#include "engine/tessel_engine.h"

#include "engine/headless_window.h"
#include "platform/files/file_service.h"
#include "support/schema_test.h"

namespace tessel::test {

namespace {

using Strings = std::vector<std::string>;

class EngineStart : public testing::Test {
  protected:
    EngineStart() {
        std::filesystem::create_directories(folder / "Projects/Demo");
        state.texts = std::make_shared<text::Texts>(std::string(TESSEL_SHARE) + "/texts", "en");
        state.questions = questions;
    }
    int Start() { return TesselEngine(state).Run(frontend, Missing{}, Missing{}); }
    FakeObject& SchemaObject() { return *frontend->repository->objects.at(1); }

    TemporaryFolder folder;
    std::string file = folder / "Projects/Demo/DBSCHEMA/Demo.mdb";
    std::shared_ptr<FakeFrontend> frontend = std::make_shared<FakeFrontend>(folder.Path(), TESSEL_SHARE);
    std::shared_ptr<StrictQuestions> questions = std::make_shared<StrictQuestions>();
    ComponentState state;
};

TEST_F(EngineStart, MakesWhatIsMissingTheFirstTimeOnly) {
    ASSERT_EQ(Start(), 0);
    EXPECT_EQ(SchemaObject().attributes["Source"], "Projects\\Demo\\DBSCHEMA\\Demo.mdb");
    EXPECT_EQ(SchemaObject().log, (Strings{"begin", "end Projects\\Demo\\DBSCHEMA\\Demo.mdb"}));
    EXPECT_EQ(state.databaseFilename, folder.Path() + "\\Projects\\Demo\\DBSCHEMA\\Demo.mdb");
    EXPECT_EQ(state.schemaFolder, folder.Path() + "\\Projects\\Demo\\DBSCHEMA");
    std::int32_t id = 0;
    ASSERT_TRUE(WorkspaceOf(state)->TableAdd("KEPT", id, Null{}, Now(), Null{}, Null{}));

    ASSERT_EQ(Start(), 0);
    EXPECT_EQ(frontend->repository->objects.size(), 2U);
    EXPECT_TRUE(state.database->Select("select * from Tables where TableName='KEPT'").Next());
}

TEST_F(EngineStart, UsesTheSourceOfTheSchemaObject) {
    auto object = frontend->repository->Add("DBSCHEMA", "Demo");
    EXPECT_THROW(Start(), Error);
    object->attributes["Source"] = "other.mdb";
    ASSERT_EQ(Start(), 0);
    EXPECT_TRUE(std::filesystem::exists(folder / "other.mdb"));
    EXPECT_EQ(state.schemaFolder, folder.Path() + "\\Projects\\Demo\\DBSCHEMA");
}

TEST_F(EngineStart, ForgetsTheLastStart) {
    ASSERT_EQ(Start(), 0);
    state.originSource.lastIdentifier = "o7";
    state.database.reset();
    files::ReplaceFile(file, "");
    EXPECT_EQ(Start(), 1);
    EXPECT_EQ(state.window, nullptr);
    EXPECT_EQ(state.originSource.lastIdentifier, "");
}

TEST_F(EngineStart, NeverGivesANewDatabaseTheChangesOfAnother) {
    ASSERT_EQ(Start(), 0);
    state.database.reset();
    std::filesystem::remove(file);
    files::ReplaceFile(file + "-journal", "\xd9\xd5\x05\xf9\x20\xa1\x63\xd7 and more");
    EXPECT_THROW(Start(), Error);
    EXPECT_FALSE(std::filesystem::exists(file));
    files::ReplaceFile(file + "-journal", std::string(512, '\0'));  // a journal with nothing in it
    EXPECT_EQ(Start(), 0);
}

TEST_F(EngineStart, SaysThatADatabaseDoesNotOpenAndWhy) {
    const auto jet = std::string("\0\1\0\0Standard Jet DB\0", 20) + std::string(4096, 'x');
    std::filesystem::create_directories(folder / "Projects/Demo/DBSCHEMA");
    files::ReplaceFile(file, jet);
    EXPECT_EQ(Start(), 1);
    const auto asked = questions->TakeAsked();
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_EQ(asked[0].text, "Failed to open DBSchema database \r\n" + state.databaseFilename);
    EXPECT_NE(asked[0].detail.find("Jet"), std::string::npos) << asked[0].detail;
    EXPECT_EQ(files::ReadFile(file), jet);
}

TEST_F(EngineStart, UnloadsAWindowThatFailsToLoad) {
    state.loadMainWindow = [](ComponentState&) -> std::shared_ptr<ToolWindow> {
        throw Error(ErrorKind::Host, "No paint.");
    };
    EXPECT_EQ(Start(), 1);
    EXPECT_EQ(state.window, nullptr);
    const auto asked = questions->TakeAsked();
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_EQ(asked[0].text, "Unsuccessful Tessel termination\rNo paint.");
    EXPECT_EQ(asked[0].icon, host::Icon::Critical);
}

TEST_F(EngineStart, FailsWhereTheProjectHasNoFolder) {
    frontend->project->attributes["Name"] = "a/b";
    EXPECT_THROW(Start(), Error);
    frontend->project->attributes["Name"] = "Absent";
    EXPECT_THROW(Start(), Error);
}

}  // namespace

}  // namespace tessel::test

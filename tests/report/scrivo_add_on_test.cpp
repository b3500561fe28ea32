#include "engine/scrivo_add_on.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "engine/classes.h"
#include "platform/component/class_registry.h"
#include "platform/files/file_service.h"
#include "report/fake_generator.h"
#include "support/fake_host.h"
#include "support/temporary_folder.h"

namespace tessel::test {

namespace {

using Strings = std::vector<std::string>;

class ReportEntry : public testing::Test {
  protected:
    ReportEntry() {
        state.texts = std::make_shared<text::Texts>(std::string(TESSEL_SHARE) + "/texts", "en");
        std::filesystem::create_directory(folder / "out");
    }
    std::shared_ptr<FakeObject> AddSchema(const std::string& name, const std::string& source) {
        auto object = frontend->repository->Add("DBSCHEMA", name);
        object->attributes["Source"] = source;
        return object;
    }
    void MakeDatabase(const std::string& file, const std::string& table) {
        files::CopyFile(TESSEL_SHARE "/DBSchema.mdb", folder / file);
        db::Database::Open(folder / file)->Execute("insert into Tables (TableName) values ('" + table + "')");
    }
    Value Run() {
        Arguments arguments{std::shared_ptr<Object>(frontend), std::shared_ptr<Object>(generator),
                            std::shared_ptr<Object>(page)};
        return addOn->Call("Run", CallKind::Method, arguments);
    }
    bool WrotePage() const { return std::filesystem::exists(folder / "out/DBSchema"); }

    TemporaryFolder folder;
    std::shared_ptr<FakeFrontend> frontend = std::make_shared<FakeFrontend>(folder.Path(), TESSEL_SHARE);
    std::shared_ptr<FakeGenerator> generator = std::make_shared<FakeGenerator>(folder / "out");
    std::shared_ptr<FakePage> page = std::make_shared<FakePage>();
    ComponentState state;
    std::shared_ptr<ScrivoAddOn> addOn = std::make_shared<ScrivoAddOn>(state);
};

TEST_F(ReportEntry, WritesThePageOfTheFirstSchemaObject) {
    MakeDatabase("one.mdb", "FIRST");
    MakeDatabase("two.mdb", "SECOND");
    AddSchema("Named", "one.mdb");
    AddSchema("Demo", "two.mdb");
    EXPECT_EQ(Run(), Value(0));
    const std::string written = files::ReadFile(folder / "out/DBSchema/Main.htm");
    EXPECT_NE(written.find("FIRST"), std::string::npos);
    EXPECT_EQ(written.find("SECOND"), std::string::npos);
    EXPECT_EQ(generator->diagrams, Strings{folder.Path() + "\\Named.dgm.xml"});
    EXPECT_EQ(generator->progress.front(), "StartProgress Creating VNT page 1");
    EXPECT_EQ(generator->log, Strings{});
}

TEST_F(ReportEntry, LeavesItsDatabaseToTheComponent) {
    MakeDatabase("earlier.mdb", "EARLIER");
    MakeDatabase("new.mdb", "NEW");
    state.database = db::Database::Open(folder / "earlier.mdb");
    AddSchema("Demo", "new.mdb");
    EXPECT_EQ(Run(), Value(0));
    ASSERT_NE(state.database, nullptr);
    EXPECT_EQ(state.database->Path(), folder / "new.mdb");
    EXPECT_EQ(state.databaseFilename, folder.Path() + "\\new.mdb");
    EXPECT_EQ(state.restrictText + state.cascadeText, "RestrictCascade");
    EXPECT_EQ(state.sqlTypes.Names().size(), 19U);
    EXPECT_EQ(state.frontend, nullptr);  // an editor that runs keeps its host
}

TEST_F(ReportEntry, SaysWhatItLacks) {
    EXPECT_EQ(Run(), Value(1));
    EXPECT_EQ(generator->log, Strings{"The project does not have defined Database Schema."});

    generator->log.clear();
    AddSchema("Demo", "none.mdb");
    EXPECT_EQ(Run(), Value(-1));
    EXPECT_EQ(generator->log, Strings{});

    MakeDatabase("earlier.mdb", "EARLIER");
    state.database = db::Database::Open(folder / "earlier.mdb");
    files::ReplaceFile(folder / "none.mdb", "a letter");
    EXPECT_EQ(Run(), Value(1));
    EXPECT_EQ(generator->log, Strings{"Fail to open DBSchema database \r\n" + folder.Path() + "\\none.mdb"});
    EXPECT_EQ(state.database, nullptr);
    EXPECT_FALSE(WrotePage());
}

TEST_F(ReportEntry, PassesOnWhatFailsInThePage) {
    MakeDatabase("one.mdb", "FIRST");
    AddSchema("Demo", "one.mdb");
    generator->fails = true;
    EXPECT_THROW(Run(), Error);
}

TEST_F(ReportEntry, AnswersToItsIdentifier) {
    MakeDatabase("one.mdb", "FIRST");
    AddSchema("Demo", "one.mdb");
    ClassRegistry classes;
    AddClasses(classes, state);
    const auto object = classes.Create("tessel.scrivoaddon");
    Arguments arguments{1};
    EXPECT_THROW(object->Call("PrimaryKeyColumns", CallKind::Method, arguments), Error);  // nothing is open
    EXPECT_EQ(Run(), Value(0));
    state.database->Execute(
        "insert into Columns (ColumnID,TabID,ColumnName,Position,TypeID) values (7,1,'ID',1,4)");
    state.database->Execute("insert into Indices (IndexID,TabID,IndexName) values (3,1,'PrimaryKey')");
    state.database->Execute(
        "insert into IndexColumns (IndexID,ColumnID,Position,Direction) values (3,7,1,'A')");
    state.database->Execute("update Tables set PrimaryIndexID=3 where TabID=1");
    const Value columns = object->Call("PrimaryKeyColumns", CallKind::Method, arguments);
    EXPECT_EQ((*columns.As<std::shared_ptr<Collection>>())->At("c7"), Value(7));

    state.frontend = frontend;  // as the start of the editor leaves it
    Arguments report{std::shared_ptr<Object>(generator), std::shared_ptr<Object>(page),
                     std::shared_ptr<Object>(generator)};
    object->Call("CreateReport", CallKind::Method, report);
    EXPECT_NE(files::ReadFile(folder / "out/DBSchema/Main.htm").find("bigkey.gif"), std::string::npos);
}

}  // namespace

}  // namespace tessel::test

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
    void AddSchema(const std::string& name, const std::string& source) {
        frontend->repository->Add("DBSCHEMA", name)->attributes["Source"] = source;
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

    TemporaryFolder folder;
    std::shared_ptr<FakeFrontend> frontend = std::make_shared<FakeFrontend>(folder.Path(), TESSEL_SHARE);
    std::shared_ptr<FakeGenerator> generator = std::make_shared<FakeGenerator>(folder / "out");
    std::shared_ptr<FakePage> page = std::make_shared<FakePage>();
    ComponentState state;
    std::shared_ptr<ScrivoAddOn> addOn = std::make_shared<ScrivoAddOn>(state);
};

TEST_F(ReportEntry, WritesThePageOfTheFirstSchemaObject) {
    MakeDatabase("earlier.mdb", "EARLIER");
    MakeDatabase("one.mdb", "FIRST");
    state.database = db::Database::Open(folder / "earlier.mdb");
    AddSchema("Named", "one.mdb");
    AddSchema("Demo", "earlier.mdb");
    EXPECT_EQ(Run(), Value(0));
    const std::string written = files::ReadFile(folder / "out/DBSchema/Main.htm");
    EXPECT_NE(written.find("FIRST"), std::string::npos);
    EXPECT_EQ(written.find("EARLIER"), std::string::npos);
    EXPECT_EQ(generator->diagrams, Strings{folder.Path() + "\\Named.dgm.xml"});
    EXPECT_EQ(generator->log, Strings{});

    EXPECT_EQ(state.Database().Path(), folder / "one.mdb");  // stays with the component
    EXPECT_EQ(state.databaseFilename, folder.Path() + "\\one.mdb");
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
    EXPECT_FALSE(std::filesystem::exists(folder / "out/DBSchema"));

    EXPECT_NE(addOn->WhyNotOpened().find("none.mdb"), std::string::npos);
    std::filesystem::remove(folder / "none.mdb");
    EXPECT_EQ(Run(), Value(-1));
    EXPECT_EQ(addOn->WhyNotOpened(), "");
}

TEST_F(ReportEntry, AnswersToItsIdentifier) {
    MakeDatabase("one.mdb", "FIRST");
    AddSchema("Demo", "one.mdb");
    ClassRegistry classes;
    AddClasses(classes, state);
    const auto object = classes.Create("tessel.scrivoaddon");
    Arguments table{1};
    EXPECT_THROW(object->Call("PrimaryKeyColumns", CallKind::Method, table), Error);  // nothing is open
    generator->fails = true;
    EXPECT_THROW(Run(), Error);
    state.database->Execute("insert into Indices (IndexID,TabID,IndexName) values (3,1,'PrimaryKey')");
    state.database->Execute("insert into IndexColumns (IndexID,ColumnID,Position) values (3,7,1)");
    state.database->Execute("update Tables set PrimaryIndexID=3 where TabID=1");
    const Value columns = object->Call("PrimaryKeyColumns", CallKind::Method, table);
    EXPECT_EQ((*columns.As<std::shared_ptr<Collection>>())->At("c7"), Value(7));

    generator->fails = false;
    state.frontend = frontend;  // as the start of the editor leaves it
    Arguments report{std::shared_ptr<Object>(generator), std::shared_ptr<Object>(page),
                     std::shared_ptr<Object>(generator)};
    object->Call("CreateReport", CallKind::Method, report);
    EXPECT_NE(files::ReadFile(folder / "out/DBSchema/Main.htm").find("FIRST"), std::string::npos);
}

}  // namespace

}  // namespace tessel::test

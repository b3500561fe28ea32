#include "import/import_db_schema.h"

#include <algorithm>
#include <functional>

#include "support/database_dump.h"
#include "support/raw_sql.h"
#include "support/schema_test.h"

namespace tessel::test {

namespace {

using Lines = std::vector<std::string>;

// The first and the last table as a connection reads them that takes no lock for itself.
std::string TablesOnDisk(const std::string& file) {
    sqlite3* connection = nullptr;
    EXPECT_EQ(sqlite3_open(file.c_str(), &connection), SQLITE_OK);
    const std::string found = RowsOf(connection, "select min(TabID), max(TabID) from Tables");
    sqlite3_close(connection);
    return found;
}

// A window that looks at something at each finished step.
class WatchingWindow : public RecordingWindow {
  public:
    void FinishStep(std::int32_t length) override {
        RecordingWindow::FinishStep(length);
        if (watch) watch();
    }
    std::function<void()> watch;
};

// A project over a repository with the tables ORDERS and ITEMS, each with its object.
class ImportTest : public SchemaTest {
  public:
    using SchemaTest::Db;
    using SchemaTest::frontend;
    using SchemaTest::Ws;

    ImportTest() {
        files::CopyFile(std::string(TESSEL_SHARE) + "/DBSchema.mdb", repository);
        RunRawSql(repository, R"(
            insert into Tables (TabID, TableName, StorageOption, Comments, PrimaryIndexID) values
                (7, 'ORDERS', 'FAST', 'What was sold', 3), (9, 'ITEMS', null, null, null);
            insert into Columns (ColumnID, TabID, ColumnName, Position, TypeID, Precision, Scale, IsNullable,
                                 Comments, DefaultValue, Created, CreatedVia, CVRL) values
                (20, 7, 'DAY', 5, 9, 0, 0, 1, null, null, '2020-02-03T00:00:00', 'x', 'obj:day'),
                (21, 7, 'NUMBER', 2, 3, 8, 2, 0, 'The number', '1', '2020-02-02T00:00:00', null, null),
                (22, 9, 'NUMBER', 1, 3, 8, 2, 0, null, null, '2020-02-02T00:00:00', null, null);
            insert into Indices (IndexID, TabID, IndexName, [Unique], CVRL) values
                (3, 7, 'PK_ORDERS', 1, 'obj:pk'), (4, 7, 'BY_DAY', 0, null);
            insert into IndexColumns (IndexID, ColumnID, Position, Direction, CVRL) values
                (3, 21, 1, 'A', null), (4, 21, 2, 'A', null), (4, 20, 1, 'D', 'obj:part');
            insert into ForeignKeys (KeyID, TabID, RefTabId, KeyName, HowDelete, CVRL) values
                (5, 9, 7, 'ITEM_OF', 'C', 'obj:key'), (6, 7, 7, 'FOLLOWS', 'R', null);
            insert into ForeignKeyColumns (KeyID, ColumnID, RefColumnID, CVRL) values
                (5, 22, 21, 'obj:pair'), (6, 21, 21, null);)");
        state.project = frontend->project;
        orders = Object("ORDERS", "2026-01-31T10:00:00");
        items = Object("ITEMS", "2026-01-30T10:00:00");
    }

    std::shared_ptr<FakeObject> Object(const std::string& name, const std::string& modified) {
        auto object = frontend->repository->Add("TABLE", name);
        object->attributes["Modified"] = modified;
        return object;
    }

    ImportOutcome Import() { return modImportDBSchema(state).SyncDBSchema(); }
    std::int32_t LastTable() {
        auto row = Db().Select("select max(TabID) as Last from Tables");
        return row.Next() ? row.Integer("Last") : 0;
    }

    const std::string repository = folder / "DBSchema.mdb";
    std::shared_ptr<FakeObject> orders;
    std::shared_ptr<FakeObject> items;
};

TEST_F(ImportTest, BringsTablesWithAllThatBelongsToThem) {
    AddTable("OWN");
    Mark();
    TakeNotes();
    const auto outcome = Import();
    EXPECT_EQ(outcome.added, (Lines{"ORDERS", "ITEMS"}));
    EXPECT_TRUE(outcome.dropped.empty());
    EXPECT_FALSE(outcome.failure);
    EXPECT_FALSE(IsMarked());

    EXPECT_EQ(
        Rows("select TableName, StorageOption, Comments, RepObjId, Created, CreatedVia, CVRL from Tables "
             "where RepObjId <> ''"),
        (Lines{"ORDERS|FAST|What was sold|" + orders->Identifier() +
                   "|2026-01-31T10:00:00|DBSchema|obj:" + orders->Identifier(),
               "ITEMS|-|-|" + items->Identifier() +
                   "|2026-01-30T10:00:00|DBSchema|obj:" + items->Identifier()}));
    EXPECT_EQ(
        Rows("select C.*, T.TableName from Columns C, Tables T where C.TabID = T.TabID and T.TableName = "
             "'ORDERS' order by Position"),
        (Lines{"1|2|NUMBER|1|3|8|2|0|The number|1|2020-02-02T00:00:00|-|-|ORDERS",
               "2|2|DAY|2|9|0|0|1|-|-|2020-02-03T00:00:00|x|obj:day|ORDERS"}));
    EXPECT_EQ(Rows("select IndexName, [Unique], CVRL from Indices order by IndexID"),
              (Lines{"PK_ORDERS|1|obj:pk", "BY_DAY|0|-"}));
    EXPECT_EQ(Rows("select I.IndexName from Tables T, Indices I where T.PrimaryIndexID = I.IndexID"),
              Lines{"PK_ORDERS"});
    EXPECT_EQ(Rows("select I.IndexName, C.ColumnName, P.Position, P.Direction, P.CVRL from IndexColumns P, "
                   "Indices I, Columns C where P.IndexID = I.IndexID and P.ColumnID = C.ColumnID order by "
                   "I.IndexID, P.Position"),
              (Lines{"PK_ORDERS|NUMBER|1|A|-", "BY_DAY|DAY|1|D|obj:part", "BY_DAY|NUMBER|2|A|-"}));
    EXPECT_EQ(
        Rows("select K.KeyName, T.TableName, R.TableName as Ref, K.HowDelete, K.CVRL, F.ColumnID, "
             "F.RefColumnID, F.CVRL as Pair from ForeignKeys K, Tables T, Tables R, ForeignKeyColumns F "
             "where K.TabID = T.TabID and K.RefTabId = R.TabID and F.KeyID = K.KeyID order by K.KeyID"),
        (Lines{"ITEM_OF|ITEMS|ORDERS|C|obj:key|3|1|obj:pair", "FOLLOWS|ORDERS|ORDERS|R|-|1|1|-"}));

    const Lines notes = TakeNotes();
    EXPECT_EQ(notes.front(), "start Importing 2");
    EXPECT_EQ(std::ranges::count(notes, "done 1"), 2);
    EXPECT_EQ(std::ranges::count(notes, "finish"), 0);
    EXPECT_EQ(std::ranges::count(notes, "connect k1 t3>t2 ITEM_OF"), 1);
}

struct Situation {
    const char* name;
    std::function<void(ImportTest&)> arise;  // after a first import
    const char* tables;                      // after a second one; '+' marks those that it added
};

class ImportAgain : public ImportTest, public testing::WithParamInterface<Situation> {};

TEST_P(ImportAgain, DropsAndAddsAllLinkedTablesOrNone) {
    Import();
    GetParam().arise(*this);
    const std::int32_t last = LastTable();
    const auto outcome = Import();
    EXPECT_FALSE(outcome.failure) << *outcome.failure;
    std::string tables;
    for (auto row = Db().Select("select TabID, TableName from Tables order by TabID"); row.Next();)
        tables += (row.Integer("TabID") > last ? " +" : " ") + row.Text("TableName");
    EXPECT_EQ(tables, GetParam().tables);

    EXPECT_EQ(Rows("select * from IndexColumns where IndexID not in (select IndexID from Indices)"), Lines{});
    EXPECT_EQ(Rows("select * from ForeignKeyColumns where KeyID not in (select KeyID from ForeignKeys)"),
              Lines{});
    const std::int32_t settled = LastTable();
    EXPECT_TRUE(Import().added.empty());
    EXPECT_EQ(LastTable(), settled) << "a third import must find nothing to do";
}

const Situation situations[] = {
    {"ANewerObject", [](ImportTest& t) { t.orders->attributes["Modified"] = "2026-01-31T10:00:01"; },
     " +ORDERS +ITEMS"},
    {"ANewerCreationAlone",
     [](ImportTest& t) {
         t.orders->attributes.erase("Modified");
         t.orders->attributes["Created"] = "2027-01-31T10:00:00";
     },
     " +ORDERS +ITEMS"},
    {"AnotherObject",
     [](ImportTest& t) {
         RunRawSql(t.repository, "insert into Tables (TableName) values ('MORE')");
         t.Object("more", "2020-01-31T10:00:00");
     },
     " +ORDERS +ITEMS +MORE"},
    {"AnObjectWithoutTable", [](ImportTest& t) { t.Object("NOBODY", "2020-01-31T10:00:00"); },
     " ORDERS ITEMS"},
    {"ASecondObjectOfOneName", [](ImportTest& t) { t.Object("ITEMS", "2030-01-31T10:00:00"); },
     " ORDERS ITEMS"},
    {"ATableThatBecameAView", [](ImportTest& t) { t.items->attributes["IsView"] = "True"; }, " +ORDERS"},
    {"AllTablesGone", [](ImportTest& t) { t.orders->attributes["Name"] = t.items->attributes["Name"] = ""; },
     ""},
    {"ALinkToAnotherType",
     [](ImportTest& t) {
         std::int32_t id = 0;
         const auto view = t.frontend->repository->Add("VIEW", "V");
         t.Ws().TableAdd("OTHER", id, view->Identifier(), DateTime{}, Null{}, Null{});
     },
     " ORDERS ITEMS OTHER"},
    {"ALinkToNothing",
     [](ImportTest& t) { t.Db().Execute("update Tables set RepObjId = 'no' where TableName = 'ORDERS'"); },
     " ORDERS +ORDERS1 +ITEMS"},
    {"ALinkThatIsEmpty",
     [](ImportTest& t) { t.Db().Execute("update Tables set RepObjId = '' where TableName = 'ITEMS'"); },
     " ITEMS +ORDERS +ITEMS1"},
};
INSTANTIATE_TEST_SUITE_P(Situations, ImportAgain, testing::ValuesIn(situations),
                         [](const auto& situation) { return situation.param.name; });

TEST_F(ImportTest, ATableIsOutdatedByItsObject) {
    modImportDBSchema import(state);
    (void)import.SyncDBSchema();
    const auto view = frontend->repository->Add("VIEW", "V");
    const auto stranger = Object("NOBODY", "2020-01-31T10:00:00");
    const auto undated = frontend->repository->Add("TABLE", "U");
    const Value before = *ParseIso("2026-01-31T09:59:59");
    const struct {
        std::string object;
        Value created;
        bool outdated;
    } cases[] = {
        {orders->Identifier(), before, true},       {orders->Identifier(), date, false},
        {orders->Identifier(), Null{}, true},       {orders->Identifier(), "never", false},
        {stranger->Identifier(), date, true},       {view->Identifier(), Null{}, false},
        {undated->Identifier(), Null{}, true},      {"nothing", Null{}, false},
        {items->Identifier(), "2026-01-31", false},
    };
    for (const auto& [object, created, outdated] : cases)
        EXPECT_EQ(import.IsTableOutdated(object, created), outdated) << object;
}

TEST_F(ImportTest, WhatIsRefusedIsLeftOutWithItsKeys) {
    RunRawSql(repository, R"(
        update Tables set TableName = '12' where TabID = 7;
        insert into Tables (TabID, TableName) values (11, 'ALONE'), (12, 'NOT_ASKED_FOR');
        insert into Columns (ColumnID, TabID, ColumnName, Position, TypeID) values
            (30, 11, '34', 1, 4), (31, 11, 'GO.OD', 2, 4);
        insert into Indices (IndexID, TabID, IndexName) values (10, 11, 'HALF'), (11, 11, 'WHOLE');
        insert into IndexColumns (IndexID, ColumnID, Position) values (10, 30, 1), (10, 31, 2), (11, 31, 1);
        insert into ForeignKeys (TabID, RefTabId, KeyName, HowDelete) values
            (9, 12, 'TO_NOWHERE', 'R'), (9, 11, 'a.b', 'R'), (9, 11, 'TO_ALONE', 'R'), (9, 11, 'TO_34', 'R');
        insert into ForeignKeyColumns select KeyID, 22, 30, null from ForeignKeys where KeyName = 'TO_34';)");
    orders->attributes["Name"] = "12";
    Object("ALONE", "2026-01-31T10:00:00");
    const auto outcome = Import();
    EXPECT_EQ(outcome.added, (Lines{"ITEMS", "ALONE"}));
    Lines leftOut;
    for (const auto& [what, reason] : outcome.leftOut) leftOut.push_back(what);
    EXPECT_EQ(leftOut, (Lines{"12", "ALONE.34", "ALONE.HALF", "ITEM_OF", "TO_NOWHERE", "a.b", "TO_34"}));
    ASSERT_EQ(outcome.renamed.size(), 1U);
    EXPECT_EQ(outcome.renamed[0].given + ">" + outcome.renamed[0].name, "ALONE.GO.OD>GOOD");
    EXPECT_EQ(Rows("select IndexName from Indices where IndexName <> 'PK_ORDERS'"), Lines{"WHOLE"});
    EXPECT_EQ(Rows("select ColumnName from Columns order by ColumnID"), (Lines{"NUMBER", "GOOD"}));
    EXPECT_EQ(Rows("select KeyName from ForeignKeys"), Lines{"TO_ALONE"});
    EXPECT_EQ(std::ranges::count(TakeNotes(), "done 1"), 2);
}

TEST_F(ImportTest, ARepositoryNeedNotSayWhereItsRowsAreFrom) {
    for (const char* table : {"Columns", "Indices", "IndexColumns", "ForeignKeys", "ForeignKeyColumns"})
        RunRawSql(repository, std::string("alter table ") + table + " drop column CVRL");
    EXPECT_FALSE(Import().failure);
    for (const char* table : {"Columns", "Indices", "IndexColumns", "ForeignKeys", "ForeignKeyColumns"})
        EXPECT_EQ(Rows(std::string("select count(*) > 1 as Many, count(CVRL) as Known from ") + table),
                  Lines{"1|0"})
            << table;
}

TEST_F(ImportTest, ARepositoryThatDoesNotOpenChangesNothing) {
    Import();
    const std::int32_t last = LastTable();
    orders->attributes["Modified"] = "2030-01-01";
    std::filesystem::remove(repository);
    for (const char* content : {"", "no database"}) {
        (void)questions->TakeAsked();
        EXPECT_TRUE(Import().failure);
        const auto asked = questions->TakeAsked();
        ASSERT_EQ(asked.size(), 1U);
        EXPECT_EQ(asked[0].text, "Fail to sync DBSchema content");
        EXPECT_EQ(asked[0].icon, host::Icon::Exclamation);
        EXPECT_NE(asked[0].detail.find("DBSchema.mdb"), std::string::npos) << asked[0].detail;
        EXPECT_EQ(LastTable(), last);
        files::ReplaceFile(repository, content);
    }
}

TEST_F(ImportTest, AFailureKeepsWhatWasDoneBefore) {
    RunRawSql(repository, R"(
        insert into Indices (IndexID, TabID, IndexName) values (10, 9, 'GOOD'), (11, 9, 'BAD');
        insert into IndexColumns (IndexID, ColumnID, Position) values (10, 22, 1), (11, 22, 1), (11, 99, 2);)");
    TakeNotes();
    const auto outcome = Import();
    ASSERT_TRUE(outcome.failure);
    EXPECT_NE(outcome.failure->find("99"), std::string::npos) << *outcome.failure;
    EXPECT_EQ(outcome.added, (Lines{"ORDERS", "ITEMS"}));
    EXPECT_EQ(Rows("select TableName from Tables order by TabID"), (Lines{"ORDERS", "ITEMS"}));
    EXPECT_EQ(Rows("select IndexName from Indices order by IndexID"), (Lines{"PK_ORDERS", "BY_DAY", "GOOD"}));
    EXPECT_EQ(Rows("select count(*) as N from ForeignKeys"), Lines{"0"});
    EXPECT_EQ(TakeNotes().back(), "refresh");
}

TEST_F(ImportTest, WhatTheDatabaseDoesNotStoreIsTold) {
    RunRawSql(repository,
              "update ForeignKeys set CVRL = cast(x'ff' as text) where KeyID = 5;"
              "update Tables set Comments = cast(x'ff' as text) where TabID = 9");
    RunRawSql(state.databaseFilename,
              "create trigger NoPrimary before update of PrimaryIndexID on Tables when new.PrimaryIndexID "
              "begin select raise(abort, 'no'); end;"
              "create trigger NoRule before update of HowDelete on ForeignKeys when new.HowDelete = 'R' "
              "begin select raise(abort, 'no'); end");
    const auto outcome = Import();
    EXPECT_FALSE(outcome.failure) << *outcome.failure;
    Lines leftOut;
    for (const auto& [what, reason] : outcome.leftOut) leftOut.push_back(what + ": " + reason);
    EXPECT_EQ(leftOut,
              (Lines{"ORDERS.PK_ORDERS: it is refused as the primary index",
                     "the storage option and the comment of ITEMS: they are refused",
                     "the origin of ITEM_OF: it is refused", "the delete rule of FOLLOWS: it is refused"}));
    EXPECT_EQ(Rows("select TableName, PrimaryIndexID, Comments from Tables order by TabID"),
              (Lines{"ORDERS|-|What was sold", "ITEMS|-|-"}));
    EXPECT_EQ(Rows("select IndexName from Indices order by IndexID"), (Lines{"PK_ORDERS", "BY_DAY"}));
    EXPECT_EQ(Rows("select KeyName, HowDelete, CVRL from ForeignKeys order by KeyID"),
              (Lines{"ITEM_OF|C|-", "FOLLOWS|R|-"}));
}

TEST_F(ImportTest, AKeyThatUsesAnUnknownColumnIsNotEvenDrawn) {
    RunRawSql(repository, "update ForeignKeyColumns set RefColumnID = 99 where KeyID = 5");
    TakeNotes();
    EXPECT_TRUE(Import().failure);
    EXPECT_EQ(Rows("select count(*) as N from ForeignKeys"), Lines{"0"});
    for (const auto& note : TakeNotes()) EXPECT_NE(note.substr(0, 7), "connect");
}

TEST_F(ImportTest, ACrashLeavesTheSchemaAsItWas) {
    const auto watching = std::make_shared<WatchingWindow>();
    state.window = watching;
    Import();
    orders->attributes["Modified"] = "2030-01-01";
    int seen = 0;
    watching->watch = [&] {  // what another program reads now is what a crash would leave
        EXPECT_EQ(TablesOnDisk(state.databaseFilename), "1|2|\n");
        // The repository may change, and is read as it was when the objects were matched.
        const auto changing = db::Database::Open(repository, std::chrono::milliseconds(0));
        EXPECT_EQ(changing->Execute("delete from Tables"), seen == 0 ? 2 : 0);
        ++seen;
    };
    EXPECT_FALSE(Import().failure);
    EXPECT_EQ(seen, 2);
    EXPECT_EQ(TablesOnDisk(state.databaseFilename), "3|4|\n");
}

}  // namespace

}  // namespace tessel::test

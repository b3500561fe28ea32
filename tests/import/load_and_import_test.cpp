#include <gtest/gtest.h>

#include <algorithm>

#include "engine/tessel_engine.h"
#include "import/import_db_schema.h"
#include "schema/identifiers.h"
#include "support/raw_sql.h"
#include "support/temporary_folder.h"
#include "workbench/load/load_repository.h"
#include "workbench/stand_alone_frontend.h"

namespace tessel::test {

namespace {

using Lines = std::vector<std::string>;

// A workspace with one open project, and a real database beside it.
class LoadAndImport : public testing::Test {
  protected:
    LoadAndImport() {
        RunRawSql(source, R"(
            create table customer (id integer primary key, name varchar(40) not null default 'new');
            create table "order" (customer integer references customer on delete cascade, day date,
                                  primary key (customer, day));
            create view busy as select customer from "order";)");
        auto workspace = workbench::WorkspaceFolder::Create(folder / "w", "Main");
        auto frontend =
            std::make_shared<workbench::StandAloneFrontend>(std::move(workspace), "Main", TESSEL_SHARE);
        state.codePage = std::make_shared<text::CodePage>(1252);
        EXPECT_EQ(TesselEngine(state).Run(frontend, Missing{}, Missing{}), 0);
    }

    workbench::LoadOutcome Load() {
        const auto workspace = workbench::WorkspaceFolder::Open(folder / "w");
        return workbench::LoadRepository(
            workbench::ReadSource("sqlite:" + source, workspace.Path()),
            {.folder = workspace.Path(),
             .file = *workspace.File(),
             .templateDatabase = std::string(TESSEL_SHARE) + "/DBSchema.mdb",
             .nameRule = [&](std::string_view name) { return SQLID(state, name); },
             .now = *ParseIso("2026-01-31T10:00:00")});
    }

    ImportOutcome Import() {
        auto outcome = modImportDBSchema(state).SyncDBSchema();
        EXPECT_FALSE(outcome.failure) << *outcome.failure;
        return outcome;
    }

    Lines Columns() {
        Lines columns;
        for (auto row = state.Database().Select(
                 "select T.TableName, C.ColumnName, C.TypeID, C.Precision, C.Scale, C.IsNullable, "
                 "C.DefaultValue "
                 "from Tables T, Columns C where T.TabID = C.TabID order by T.TabID, C.Position");
             row.Next();)
            columns.push_back(row.Text("TableName") + "." + row.Text("ColumnName") + " " +
                              state.sqlTypes.SqlTypeText(row.Integer("TypeID"), row.Integer("Precision"),
                                                         row.Integer("Scale")) +
                              (row.Boolean("IsNullable") ? "" : " not null") +
                              (row["DefaultValue"].IsNull() ? "" : " default " + row.Text("DefaultValue")));
        return columns;
    }

    TemporaryFolder folder;
    const std::string source = folder / "shop.db";
    ComponentState state;
};

TEST_F(LoadAndImport, AProjectFollowsARealDatabase) {
    EXPECT_EQ(Load().added, (Lines{"customer", "order", "busy"}));
    EXPECT_EQ(Import().added, (Lines{"customer", "order"}));
    EXPECT_EQ(Columns(),
              (Lines{"customer.id INTEGER not null", "customer.name VARCHAR(40) not null default new",
                     "order.customer INTEGER not null", "order.day DATE not null"}));
    auto key = state.Database().Select("select KeyName, HowDelete from ForeignKeys");
    ASSERT_TRUE(key.Next());
    EXPECT_EQ(key.Text("KeyName") + key.Text("HowDelete"), "FK_order_customerC");

    EXPECT_TRUE(Load().changed.empty());
    EXPECT_TRUE(Import().added.empty());

    RunRawSql(source, "alter table customer add column rating numeric(5,2)");
    EXPECT_EQ(Load().changed, Lines{"customer"});
    EXPECT_EQ(Import().added.size(), 2U);
    EXPECT_EQ(Columns()[2], "customer.rating NUMERIC(5,2)");

    RunRawSql(source, "drop view busy; drop table \"order\"; create table extra (a)");
    const auto load = Load();
    EXPECT_EQ(load.removed, (Lines{"busy", "order"}));
    EXPECT_EQ(load.added, Lines{"extra"});
    const auto last = Import();
    EXPECT_EQ(last.added, (Lines{"customer", "extra"}));
    EXPECT_TRUE(last.leftOut.empty()) << last.leftOut[0].what;
    EXPECT_TRUE(Import().added.empty());
}

}  // namespace

}  // namespace tessel::test

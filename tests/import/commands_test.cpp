#include <gtest/gtest.h>

#include <filesystem>

#include "support/child_program.h"
#include "support/raw_sql.h"
#include "support/temporary_folder.h"

namespace tessel::test {

namespace {

using Lines = std::vector<std::string>;

class ImportProgram : public testing::Test {
  protected:
    ImportProgram() {
        EXPECT_EQ(Run({"new", folder / "w"}, 0),
                  Lines{"Made the workspace " + folder / "w with the project Main."});
    }

    Lines Run(const Lines& arguments, int code) const {
        Lines command{TESSEL_PROGRAM, "--workspace", folder / "w", "--lang", "en"};
        command.insert(command.end(), arguments.begin(), arguments.end());
        ChildProgram program(command);
        const Lines lines = program.Feed({});
        EXPECT_EQ(program.Wait(), code) << testing::PrintToString(lines);
        return lines;
    }
    Lines Load(const std::string& from, int code) const { return Run({"repository", "load", from}, code); }

    TemporaryFolder folder;
    const std::string source = folder / "w/shop.db";
};

TEST_F(ImportProgram, AProjectFollowsARealDatabase) {
    RunRawSql(source, R"(
        create table a (id integer primary key, x inet default 'n');
        create table "b-c" (a integer references a on delete cascade, day date, primary key (a, day));
        create view v as select 1 as x;)");
    EXPECT_EQ(
        Load("sqlite:" + source, 0),
        (Lines{"sqlite:shop.db: 2 table(s), 1 view(s); 3 new, 0 changed, 0 gone", "new: a", "new: b_c",
               "new: v", "note: a.x: the type inet becomes LONGVARCHAR", "note: b-c: it is called b_c here",
               "note: v.x: a column without a type becomes LONGVARCHAR"}));
    EXPECT_EQ(Run({"import"}, 0), (Lines{"0 table(s) dropped, 2 added", "new: a", "new: b_c"}));
    EXPECT_EQ(Run({"import"}, 0), Lines{"2 linked table(s), nothing to do"});

    RunRawSql(source, "alter table a add column \"rat\x1b\ning\" numeric(5,2)");
    EXPECT_EQ(Load("sqlite:" + source, 0).at(3), "note: a.rat  ing: it is called rating here");
    EXPECT_EQ(Run({"import"}, 0).front(), "2 table(s) dropped, 2 added");

    RunRawSql(source, "drop table a; drop view v; create table extra (a)");
    EXPECT_EQ(Load("sqlite:" + source, 0).front(),
              "sqlite:shop.db: 2 table(s), 0 view(s); 1 new, 1 changed, 2 gone");
    EXPECT_EQ(Run({"import"}, 0), (Lines{"2 table(s) dropped, 2 added", "new: extra", "gone: a"}));
}

TEST_F(ImportProgram, SaysWhyItCannot) {
    const auto import = Run({"import"}, 2);
    ASSERT_EQ(import.size(), 1U);
    EXPECT_TRUE(import[0].starts_with("tessel: Fail to sync DBSchema content: ")) << import[0];
    for (const auto& wrong : {folder / "none.db", std::string("sqlite:") + folder / "none.db"}) {
        const auto load = Load(wrong, 2);
        ASSERT_EQ(load.size(), 1U);
        EXPECT_NE(load[0].find("none.db"), std::string::npos) << load[0];
    }
    EXPECT_FALSE(std::filesystem::exists(folder / "w/DBSchema.mdb"));
}

}  // namespace

}  // namespace tessel::test

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

    static Lines Run(Lines arguments, int code) {
        arguments.insert(arguments.begin(), TESSEL_PROGRAM);
        ChildProgram program(arguments);
        program.CloseInput();
        Lines lines;
        for (std::string line = program.ReadLine(); !line.empty(); line = program.ReadLine())
            lines.push_back(line);
        EXPECT_EQ(program.Wait(), code) << testing::PrintToString(lines);
        return lines;
    }
    Lines Load(const std::string& from, int code) {
        return Run({"--workspace", folder / "w", "--lang", "en", "repository", "load", from}, code);
    }
    Lines Import(int code) { return Run({"--workspace", folder / "w", "--lang", "en", "import"}, code); }

    TemporaryFolder folder;
    const std::string source = folder / "w/shop.db";
};

TEST_F(ImportProgram, SaysWhatItLoadsAndImports) {
    RunRawSql(source,
              "create table a (x inet); create table \"b-c\" (x int); create view v as select 1 as x");
    EXPECT_EQ(
        Load("sqlite:" + source, 0),
        (Lines{"sqlite:shop.db: 2 table(s), 1 view(s); 3 new, 0 changed, 0 gone", "new: a", "new: b_c",
               "new: v", "note: a.x: the type inet becomes LONGVARCHAR", "note: b-c: it is called b_c here",
               "note: v.x: a column without a type becomes LONGVARCHAR"}));
    EXPECT_EQ(Import(0), (Lines{"0 table(s) dropped, 2 added", "new: a", "new: b_c"}));
    EXPECT_EQ(Import(0), Lines{"2 linked table(s), nothing to do"});

    RunRawSql(source, "drop table a; drop view v; alter table \"b-c\" add column y int");
    EXPECT_EQ(Load("sqlite:" + source, 0),
              (Lines{"sqlite:shop.db: 1 table(s), 0 view(s); 0 new, 1 changed, 2 gone", "changed: b_c",
                     "gone: a", "gone: v", "note: b-c: it is called b_c here"}));
    EXPECT_EQ(Import(0), (Lines{"2 table(s) dropped, 1 added", "gone: a"}));
}

TEST_F(ImportProgram, SaysWhyItCannot) {
    const auto import = Import(2);
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

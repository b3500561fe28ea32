#include <gtest/gtest.h>

#include "platform/files/file_service.h"
#include "support/child_program.h"
#include "support/temporary_folder.h"

namespace tessel::test {

namespace {

using Lines = std::vector<std::string>;  // the exit code first

class VerifyProgram : public testing::Test {
  protected:
    VerifyProgram() {
        EXPECT_EQ(Run({TESSEL_PROGRAM, "new", folder / "w"}).front(), "0");
        Call(R"({"member":"TableAdd","args":["A",0,null,{"date":"2026-01-31"}]})");
        Call(R"({"member":"TableAdd","args":["B",0,null,{"date":"2026-01-31"}]})");
        Call(R"({"member":"ColumnAdd","args":[2,"ID",1,40000,0,false,null,null,{"date":"2026-01-31"},)"
             R"(null,null,-1]})");
    }
    static Lines Run(const Lines& command, const std::string& input = {}) {
        ChildProgram program(command);
        Lines lines = program.Feed(input.empty() ? Lines{} : Lines{input});
        lines.insert(lines.begin(), std::to_string(program.Wait()));
        return lines;
    }
    void Call(const std::string& line) const {
        const Lines answer = Run({TESSEL_PROGRAM, "--workspace", folder / "w", "call"}, line);
        EXPECT_NE(answer.back().find("\"result\""), std::string::npos) << answer.back();
    }
    Lines Verify(const std::string& language = "en", const Lines& options = {}) const {
        Lines command{TESSEL_PROGRAM, "--workspace", folder / "w", "--lang", language, "verify"};
        command.insert(command.end(), options.begin(), options.end());
        return Run(command);
    }

    TemporaryFolder folder;
};

TEST_F(VerifyProgram, ListsTheFindings) {
    Call(R"({"member":"ForeignAdd","args":[2,1,"FK"]})");
    Call(R"x({"on":"ProjectDB","member":"Execute","args":["update ForeignKeys set KeyName = 'F\nK'"]})x");
    Lines found{"1",
                "A: Table has no columns",
                "B.ID: Value of precision exceeds the limit for type CHAR",
                "B.F K: Foreign key F K has no columns",
                "B.F K: Foreign key F K: No appropriate unique index on referenced table",
                "4 error(s) found"};
    EXPECT_EQ(Verify(), found);
    found.back() = "4 件のエラーが見つかりました";
    EXPECT_EQ(Verify("ja"), found);  // as stored, in the language of that run

    Call(R"({"member":"ForeignDrop","args":[1]})");
    EXPECT_EQ(Verify("en", {"--json"}),
              (Lines{"1", R"([{"TblID":1,"KeyID":0,"ColumnID":0,"TableName":"A","Message":"Table has no )"
                          R"(columns"},{"TblID":2,"KeyID":-1,"ColumnID":1,"TableName":"B",)"
                          R"("Message":"Value of precision exceeds the limit for type CHAR"}])"}));
}

TEST_F(VerifyProgram, ExitsCleanOrFailed) {
    Call(R"({"member":"TableDrop","args":[1]})");
    Call(R"({"member":"ColumnUpdate","args":[1,{"missing":true},12,10]})");
    EXPECT_EQ(Verify(), (Lines{"0", "No errors"}));
    EXPECT_EQ(Verify("en", {"--json"}), (Lines{"0", "[]"}));
    EXPECT_EQ(Run({"/bin/sh", "-c", TESSEL_PROGRAM " --workspace " + (folder / "w") + " verify >/dev/full"}),
              (Lines{"2", "tessel: The output cannot be written."}));
    files::ReplaceFile(folder / "w/Projects/Main/DBSCHEMA/Main.mdb", "");
    EXPECT_EQ(Verify().front(), "2");
    EXPECT_EQ(Verify("en", {"--jason"}).front(), "2");
}

TEST_F(VerifyProgram, IsColouredOnATerminalOnly) {
    const auto isColoured = [&](const std::string& setting) {
        const Lines output = Run({"/usr/bin/env", setting, "script", "-qec",
                                  TESSEL_PROGRAM " --workspace " + (folder / "w") + " verify", "/dev/null"});
        const std::string text = testing::PrintToString(output);
        EXPECT_NE(text.find("exceeds the limit"), std::string::npos) << text;
        return text.find("\\x1B[") != std::string::npos;
    };
    EXPECT_TRUE(isColoured("NO_COLOR="));
    EXPECT_FALSE(isColoured("NO_COLOR=1"));
}

}  // namespace

}  // namespace tessel::test

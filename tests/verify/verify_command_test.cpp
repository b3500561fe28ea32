#include <gtest/gtest.h>

#include "platform/files/file_service.h"
#include "support/child_program.h"
#include "support/temporary_folder.h"

namespace tessel::test {

namespace {

using Strings = std::vector<std::string>;

struct Outcome {
    int code;
    Strings lines;
    bool operator==(const Outcome&) const = default;
};
void PrintTo(const Outcome& outcome, std::ostream* stream) {
    *stream << outcome.code << " " << testing::PrintToString(outcome.lines);
}

class VerifyProgram : public testing::Test {
  protected:
    VerifyProgram() {
        EXPECT_EQ(Run({TESSEL_PROGRAM, "new", folder / "w"}).code, 0);
        Call(R"({"member":"TableAdd","args":["A",0,null,{"date":"2026-01-31"}]})");
        Call(R"({"member":"TableAdd","args":["B",0,null,{"date":"2026-01-31"}]})");
        Call(R"({"member":"ColumnAdd","args":[2,"ID",1,40000,0,false,null,null,{"date":"2026-01-31"},)"
             R"(null,null,-1]})");
        Call(R"({"member":"ForeignAdd","args":[2,1,"FK"]})");
    }
    static Outcome Run(const Strings& command, const std::string& input = {}) {
        ChildProgram program(command);
        if (!input.empty()) program.WriteLine(input);
        program.CloseInput();
        Strings lines;
        for (std::string line = program.ReadLine(); !line.empty(); line = program.ReadLine())
            lines.push_back(line);
        return {program.Wait(), lines};
    }
    void Call(const std::string& line) const {
        const Outcome outcome = Run({TESSEL_PROGRAM, "--workspace", folder / "w", "call"}, line);
        ASSERT_EQ(outcome.lines.size(), 1U);
        EXPECT_NE(outcome.lines[0].find("\"result\""), std::string::npos) << outcome.lines[0];
    }
    Outcome Verify(const Strings& options = {}, const std::string& language = "en") const {
        Strings command{TESSEL_PROGRAM, "--workspace", folder / "w", "--lang", language, "verify"};
        command.insert(command.end(), options.begin(), options.end());
        return Run(command);
    }

    TemporaryFolder folder;
};

TEST_F(VerifyProgram, ListsTheFindings) {
    const Outcome found{
        1,
        {"A: Table has no columns", "B.ID: Value of precision exceeds the limit for type CHAR",
         "B.FK: Foreign key FK has no columns",
         "B.FK: Foreign key FK: No appropriate unique index on referenced table", "4 error(s) found"}};
    EXPECT_EQ(Verify(), found);
    EXPECT_EQ(Verify(), found);  // as stored
    EXPECT_EQ(Verify({"--json"}).lines,
              Strings{R"([{"TblID":1,"KeyID":0,"ColumnID":0,"TableName":"A","Message":"Table has no )"
                      R"(columns"},{"TblID":2,"KeyID":-1,"ColumnID":1,"TableName":"B","Message":"Value of )"
                      R"(precision exceeds the limit for type CHAR"},{"TblID":2,"KeyID":1,"ColumnID":0,)"
                      R"("TableName":"B","Message":"Foreign key FK has no columns"},{"TblID":2,"KeyID":1,)"
                      R"("ColumnID":0,"TableName":"B","Message":"Foreign key FK: No appropriate unique )"
                      R"(index on referenced table"}])"});
}

TEST_F(VerifyProgram, ListsWhatACallFound) {
    Call(R"({"member":"Verify"})");
    const Strings stored = Verify({}, "ja").lines;  // still in the language of the run
    ASSERT_EQ(stored.size(), 5U);
    EXPECT_EQ(stored.front(), "A: Table has no columns");
    EXPECT_EQ(stored.back(), "4 件のエラーが見つかりました");
}

TEST_F(VerifyProgram, ExitsCleanOrFailed) {
    Call(R"({"member":"TableDrop","args":[1]})");
    Call(R"({"member":"ColumnUpdate","args":[1,{"missing":true},12,10]})");
    EXPECT_EQ(Verify(), (Outcome{0, {"No errors"}}));
    EXPECT_EQ(Verify({"--json"}), (Outcome{0, {"[]"}}));
    EXPECT_EQ(Run({"/bin/sh", "-c", TESSEL_PROGRAM " --workspace " + (folder / "w") + " verify >/dev/full"}),
              (Outcome{2, {"tessel: The output cannot be written."}}));
    files::ReplaceFile(folder / "w/Projects/Main/DBSCHEMA/Main.mdb", "");
    EXPECT_EQ(Verify().code, 2);
    EXPECT_EQ(Verify({"--jason"}).code, 2);
}

TEST_F(VerifyProgram, IsColouredOnATerminalOnly) {
    const auto onTerminal = [&](const std::string& setting) {
        std::string output;
        for (const auto& line :
             Run({"/usr/bin/env", setting, "script", "-qec",
                  TESSEL_PROGRAM " --workspace " + (folder / "w") + " verify", "/dev/null"})
                 .lines)
            output += line;
        return output;
    };
    EXPECT_NE(onTerminal("NO_COLOR=").find("\x1b["), std::string::npos);
    const std::string plain = onTerminal("NO_COLOR=1");
    EXPECT_NE(plain.find("B.FK: "), std::string::npos) << plain;
    EXPECT_EQ(plain.find('\x1b'), std::string::npos) << plain;
}

}  // namespace

}  // namespace tessel::test

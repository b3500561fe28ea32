#include <gtest/gtest.h>

#include <algorithm>

#include "platform/files/file_service.h"
#include "support/child_program.h"
#include "support/temporary_folder.h"

namespace tessel::test {

namespace {

struct Outcome {
    int code;
    std::string output;
};

Outcome RunProgram(const std::vector<std::string>& arguments, const std::vector<std::string>& input = {}) {
    std::vector<std::string> command{TESSEL_PROGRAM};
    command.insert(command.end(), arguments.begin(), arguments.end());
    ChildProgram program(command);
    std::string output;
    for (const auto& line : program.Feed(input)) output += line + "\n";
    return {program.Wait(), output};
}

class Program : public testing::Test {
  protected:
    void Make() { ASSERT_EQ(RunProgram({"new", workspace, "--project", "Works"}).code, 0); }

    TemporaryFolder folder;
    std::string workspace = folder / "works";
    std::string database = workspace + "/Projects/Works/DBSCHEMA/Works.mdb";
};

TEST_F(Program, MakesAWorkspaceAndServesCalls) {
    Make();
    const auto added =
        RunProgram({"--workspace", workspace, "call"},
                   {R"({"member":"TableAdd","args":["A",0,null,{"date":"2026-01-31"},null,null]})", "{",
                    R"({"member":"TableUpdate","args":[1,{"missing":true},{"missing":true},"x"]})"});
    EXPECT_EQ(added.code, 0);
    EXPECT_EQ(std::count(added.output.begin(), added.output.end(), '\n'), 3);
    const auto used = RunProgram({"--workspace", workspace, "--project", "Works", "--lang", "ja", "call"},
                                 {R"({"member":"GetFreeTableName","args":["A"]})"});
    EXPECT_NE(used.output.find("\"A1\""), std::string::npos) << used.output;
    EXPECT_FALSE(files::FileExists(database + "-journal"));
}

TEST_F(Program, SaysWhatItCannotOpen) {
    const auto says = [&](const std::vector<std::string>& arguments, const std::string& what) {
        const auto outcome = RunProgram(arguments);
        EXPECT_EQ(outcome.code, 2) << what;
        EXPECT_NE(outcome.output.find(what), std::string::npos) << outcome.output;
    };
    says({"--workspace", folder.Path(), "call"}, folder.Path());
    says({"new", workspace, "--project", "../up"}, "../up");
    Make();
    says({"new", workspace}, workspace);
    says({"--workspace", workspace, "--project", "Other", "call"}, "Works");
    says({"--lang", "fr", "call"}, "fr");
    files::CreateFolder(workspace + "/Projects/Works/DBSCHEMA");
    files::ReplaceFile(database, "");
    says({"--workspace", workspace, "call"}, "Failed to open DBSchema database");
    EXPECT_EQ(files::ReadFile(database), "");
}

TEST_F(Program, ManyFirstStartsMakeAndShareOneDatabase) {
    constexpr int programs = 6;
    Make();
    std::vector<std::unique_ptr<ChildProgram>> starting;
    for (int i = 0; i < programs; ++i)
        starting.push_back(std::make_unique<ChildProgram>(
            std::vector<std::string>{TESSEL_PROGRAM, "--workspace", workspace, "call"}));
    for (int i = 0; i < programs; ++i)
        starting[i]->WriteLine(R"({"member":"TableAdd","args":["T)" + (i == 0 ? "" : std::to_string(i)) +
                               R"(",0,null,{"date":"2026-01-31"},null,null]})");
    for (const auto& program : starting) {
        const std::string answer = program->ReadLine();
        EXPECT_NE(answer.find("\"result\":true"), std::string::npos) << answer;
    }
    for (const auto& program : starting) {
        program->WriteLine(R"({"member":"GetFreeTableName","args":["T"]})");
        const std::string answer = program->ReadLine();
        EXPECT_NE(answer.find("\"T6\""), std::string::npos) << "each sees what the others made: " << answer;
    }
    starting.clear();
    const auto all =
        RunProgram({"--workspace", workspace, "call"},
                   {R"({"on":"ProjectDB","member":"Select","args":["select count(*) as n from Tables"]})"});
    EXPECT_NE(all.output.find("{\"n\":" + std::to_string(programs) + "}"), std::string::npos) << all.output;
    const std::string repository = files::ReadFile(workspace + "/workspace.xml");
    EXPECT_EQ(repository.find("\"DBSCHEMA\""), repository.rfind("\"DBSCHEMA\"")) << repository;
}

TEST_F(Program, EndsWithTheCodeOfAFailureAlsoWhereNobodyHearsOfIt) {
    Make();
    for (const std::string command :
         {"--help >/dev/full", "--version >&-", "--workspace /none verify 2>/dev/full",
          "--workspace /none import 2>&-", "--workspace \"$0\" addon run None 2>/dev/full",
          "--workspace \"$0\" call >/dev/full 2>/dev/null <<'.'\n{\"member\":\"ToolID\"}\n."})
        EXPECT_EQ(
            ChildProgram({"/bin/sh", "-c", std::string("'") + TESSEL_PROGRAM + "' " + command, workspace})
                .Wait(),
            2)
            << command;
}

}  // namespace

}  // namespace tessel::test

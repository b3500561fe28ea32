#include <gtest/gtest.h>

#include <filesystem>

#include "platform/files/file_service.h"
#include "support/child_program.h"
#include "support/temporary_folder.h"

namespace tessel::test {

namespace {

using Strings = std::vector<std::string>;

class ReportProgram : public testing::Test {
  protected:
    ReportProgram() { EXPECT_EQ(Run({"new", folder / "w", "--project", "P"}), 0); }

    int Run(const Strings& options, const std::string& input = {}) {
        Strings command{TESSEL_PROGRAM, "--workspace", folder / "w", "--lang", "en"};
        command.insert(command.end(), options.begin(), options.end());
        ChildProgram program(command);
        lines = program.Feed(input.empty() ? std::vector<std::string>{} : std::vector<std::string>{input});
        return program.Wait();
    }
    void AddTable() {
        EXPECT_EQ(
            Run({"call"}, R"({"member":"TableAdd","args":["T",0,null,{"date":"2026-01-31"},null,null]})"), 0);
    }
    std::string Read(const std::string& file) const { return files::ReadFile(folder / file); }

    TemporaryFolder folder;
    Strings lines;  // what the last program wrote
};

TEST_F(ReportProgram, SaysWhereThePageIsAndWhatWasLogged) {
    AddTable();
    EXPECT_EQ(Run({"report"}), 0);
    EXPECT_EQ(lines, Strings{folder / "w/Output/P/Main.htm"});
    EXPECT_NE(Read("w/Output/P/Main.htm").find("<a id=\"Table:T\">"), std::string::npos);
    EXPECT_NE(Read("w/Output/index.html").find("P/Main.htm"), std::string::npos);

    EXPECT_EQ(Run({"report", "--out", folder / "w/../new/pages/"}), 0);
    EXPECT_EQ(lines, Strings{folder / "new/pages/P/Main.htm"});
    EXPECT_EQ(Read("new/pages/P/Main.htm"), Read("w/Output/P/Main.htm"));
    EXPECT_EQ(Read("new/pages/Decor.css"), Read("w/Output/Decor.css"));

    files::ReplaceFile(folder / "w/Projects/P/DBSCHEMA/P.dgm.xml", "<diagram");
    EXPECT_EQ(Run({"report"}), 0);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_NE(lines[0].find("P.dgm.xml"), std::string::npos) << lines[0];  // what the generator logged

    std::filesystem::remove(folder / "w/Output/index.html");
    std::filesystem::create_directory(folder / "w/Output/index.html");
    EXPECT_EQ(Run({"report"}), 2);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_NE(lines[0].find("P.dgm.xml"), std::string::npos) << lines[0];
    EXPECT_NE(lines[1].find("index.html"), std::string::npos) << lines[1];
}

TEST_F(ReportProgram, FailsWithoutASchema) {
    const std::string database = folder / "w/Projects/P/DBSCHEMA/P.mdb";
    EXPECT_EQ(Run({"report"}), 2);
    EXPECT_EQ(lines, Strings{"tessel: The project does not have defined Database Schema."});
    AddTable();
    std::filesystem::remove(database);
    EXPECT_EQ(Run({"report"}), 2);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_TRUE(lines[0].starts_with("tessel: There is no schema database at " + database)) << lines[0];
    EXPECT_FALSE(std::filesystem::exists(folder / "w/Output/P"));
}

TEST_F(ReportProgram, RefusesAFolderThatNoPageCanBeIn) {
    AddTable();
    EXPECT_EQ(Run({"report", "--out", folder / "a\\b"}), 2);
    files::ReplaceFile(folder / "file", "");
    EXPECT_EQ(Run({"report", "--out", folder / "file/pages"}), 2);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_NE(lines[0].find(folder / "file/pages"), std::string::npos) << lines[0];
}

}  // namespace

}  // namespace tessel::test

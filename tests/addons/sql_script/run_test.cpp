#include <sys/stat.h>

#include "script_test.h"
#include "shared/files.h"
#include "support/child_process.h"

namespace tessel::test {
namespace {

class ScriptRun : public ScriptTest {
  protected:
    void MakeBook() { AddColumn(AddTable("BOOK"), "ISBN"); }
    std::string Failure(const std::string& parameter) {
        try {
            return Run(parameter);
        } catch (const Error& error) {
            return error.what();
        }
    }
    std::string Message() {
        const auto asked = questions->TakeAsked();
        return asked.empty() ? "" : asked.back().text;
    }
};

TEST_F(ScriptRun, AsksForWhatIsNotGivenAndWritesWhereTheUserSays) {
    MakeBook();
    questions->Answers({host::Answer::Cancel});
    EXPECT_EQ(Run("drop=yes"), "Nothing was written.");
    EXPECT_EQ(questions->lastForm.fields.at(1).value, Value(folder / "Output/Demo.sql"));
    EXPECT_EQ(questions->lastForm.fields.at(2).value, Value(true));
    EXPECT_FALSE(std::filesystem::exists(folder / "Output"));

    questions->Answers({Filled({{"dialect", "sqlite"}, {"comments", false}})});
    EXPECT_EQ(Run("dialect=mysql"), "1 table, 0 keys: " + folder / "Output/Demo.sql");
    EXPECT_EQ(Message(), "1 table, 0 keys: " + folder / "Output/Demo.sql");
    EXPECT_EQ(Content(folder / "Output/Demo.sql"),
              "-- Demo: the schema for SQLite\n-- 1 table, 0 keys\n"
              "-- Run it with: sqlite3 -bail DATABASE < SCRIPT\n\nBEGIN;\n\n"
              "CREATE TABLE \"BOOK\" (\n    \"ISBN\" INTEGER\n);\n\nCOMMIT;\n");
    EXPECT_EQ(folder.Names().count("schema.errors"), 0U);
}

TEST_F(ScriptRun, GoesBackToTheFormUntilItMayWrite) {
    MakeBook();
    Write(folder / "old.sql", "old");
    const FilledForm old = Filled({{"file", folder / "old.sql"}});
    questions->Answers({Filled({{"file", " "}}), Filled({{"file", folder / "none/none/out.sql"}}), old,
                        host::Answer::Cancel, host::Answer::Cancel});
    EXPECT_EQ(Run("dialect=sqlite"), "Nothing was written.");
    EXPECT_EQ(Content(folder / "old.sql"), "old");
    const auto asked = questions->TakeAsked();
    ASSERT_EQ(asked.size(), 7U);
    EXPECT_EQ(asked[1].text, "Enter the name of the file.");
    EXPECT_EQ(asked[3].text, folder / "none/none/out.sql cannot be written: No such file or directory.");
    EXPECT_EQ(asked[5].text, folder / "old.sql is there already. It will be replaced.");
    questions->Answers({old, host::Answer::OK});
    Run("dialect=sqlite");
    EXPECT_NE(Content(folder / "old.sql"), "old");
}

TEST_F(ScriptRun, ShowsItsProgressToTheEnd) {
    MakeBook();
    TakeNotes();
    Script("sqlite");
    const std::vector<std::string> notes{"start Writing the SQL script 100",
                                         "step Reading the schema",
                                         "done 50",
                                         "step Writing BOOK",
                                         "done 50",
                                         "finish"};
    EXPECT_EQ(TakeNotes(), notes);
    EXPECT_NE(Failure("dialect=sqlite;file=" + folder / "none/none/out.sql"), "");
    EXPECT_EQ(TakeNotes().back(), "finish");
}

TEST_F(ScriptRun, TellsEveryRemarkInTheUsersLanguage) {
    for (int i = 1; i <= 12; ++i) AddTable("T" + std::to_string(i));
    host->language = "ja";
    EXPECT_EQ(Run("dialect=mysql;file=" + folder / "out.sql"),
              "テーブル 0 個, キー 0 個, 注意 12 件: " + folder / "out.sql");
    const std::string errors = Content(folder / "schema.errors");
    EXPECT_EQ(std::ranges::count(errors, '\n'), 12);
    const std::string message = Message();
    EXPECT_NE(message.find("T10: 列がないため、テーブルを省きます。\n… ほか 2 件"), std::string::npos)
        << message;
    EXPECT_NE(Content(folder / "out.sql").find("-- Remark: T12: the table is left out"), std::string::npos);

    std::filesystem::remove(folder / "schema.errors");
    std::filesystem::create_directory(folder / "schema.errors");
    questions->Answers({Filled({{"dialect", "mysql"}})});
    Run("");
    EXPECT_TRUE(Message().ends_with("\n" + folder / "schema.errors" + " に書き込めません: Is a directory"));
}

TEST_F(ScriptRun, ReplacesAFileByAWholeOneOrLeavesIt) {
    MakeBook();
    Write(folder / "real.sql", "old");
    std::filesystem::permissions(folder / "real.sql", std::filesystem::perms(0640));
    const std::string planted = folder / ".tessel-" + std::to_string(getpid()) + "-0";
    std::filesystem::create_symlink("victim", planted);
    const std::string longest = std::string(251, 'x') + ".sql";
    for (const auto& file : {std::string("real.sql"), longest}) {
        const std::string link = folder / "link.sql";
        std::filesystem::create_symlink(file, link);
        Run("dialect=sqlite;file=" + link);
        EXPECT_TRUE(std::filesystem::is_symlink(link)) << file;
        EXPECT_EQ(Content(folder / file), Script("sqlite"));
        std::filesystem::remove(link);
    }
    EXPECT_EQ(std::filesystem::status(folder / "real.sql").permissions(), std::filesystem::perms(0640));
    EXPECT_FALSE(std::filesystem::exists(folder / "victim"));
    std::filesystem::remove(planted);

    std::filesystem::create_directory(folder / "folder.sql");
    EXPECT_EQ(Failure("dialect=sqlite;file=" + folder / "folder.sql"),
              folder / "folder.sql cannot be written: Is a directory.");
    EXPECT_EQ(Failure("dialect=sqlite;file=" + folder / "none/none/out.sql"),
              folder / "none/none/out.sql cannot be written: No such file or directory.");
    mkfifo((folder / "pipe.sql").c_str(), 0666);
    EXPECT_EQ(Failure("dialect=sqlite;file=" + folder / "pipe.sql"),
              folder / "pipe.sql cannot be written: Invalid argument.");
    for (const auto& name : folder.Names()) EXPECT_EQ(name.find(".tessel"), std::string::npos) << name;
}

TEST_F(ScriptRun, WritesIntoAFolderThatIsClosedToReading) {
    std::filesystem::permissions(folder.Path(), std::filesystem::perms(0333));
    EXPECT_TRUE(HoldsInChild([&] {
        if (geteuid() == 0 && setuid(65534) != 0) return false;
        return !tool::ReplaceFile(folder / "out.sql", "new");
    }));
    std::filesystem::permissions(folder.Path(), std::filesystem::perms::owner_all);
    EXPECT_EQ(Content(folder / "out.sql"), "new");
}

TEST_F(ScriptRun, AFullDiskLeavesTheOldScriptAndIsSaid) {
    MakeBook();
    Write(folder / "out.sql", "old");
    const auto names = folder.Names();
    EXPECT_TRUE(HoldsInChild([&] {
        FillDisk(50);
        return Failure("dialect=sqlite;file=" + folder / "out.sql") ==
               folder / "out.sql" + " cannot be written: File too large.";
    }));
    EXPECT_EQ(Content(folder / "out.sql"), "old");
    EXPECT_EQ(folder.Names(), names);
}

TEST_F(ScriptRun, TakesTheWorkspacesOwnTableOfTypes) {
    MakeBook();
    std::filesystem::create_directory(folder / "Options");
    const std::string file = folder / "Options/sql_types.txt";
    Write(file, "type | sqlite\nINTEGER | INT8\n* | TEXT\n");
    EXPECT_NE(Script("sqlite").find("\"ISBN\" INT8"), std::string::npos);
    Write(file, "type | sqlite\nINTEGER\n");
    EXPECT_EQ(Failure("dialect=sqlite;file=" + folder / "out.sql"),
              file + ", line 2: The line has 1 cell(s), the heading 2.");
    EXPECT_NE(Content(folder / "out.sql").find("INT8"), std::string::npos) << "the old script is still there";
    std::filesystem::remove(file);
    std::filesystem::create_directory(file);
    EXPECT_EQ(Failure("dialect=sqlite;file=" + folder / "out.sql"),
              file + " cannot be read: Is a directory.");
}

}  // namespace
}  // namespace tessel::test

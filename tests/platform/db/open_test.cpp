#include <unistd.h>

#include <functional>

#include "platform/db/temporary_database.h"
#include "support/child_process.h"
#include "support/raw_sql.h"

namespace tessel::db {
namespace {

using std::filesystem::path;

class OpenTest : public TemporaryDatabase {
  protected:
    // What of the folder a refusal must leave as it was.
    std::string FolderContent() const {
        std::string content;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_.Path()))
            content += entry.path().string() + "\n" + (entry.is_regular_file() ? Content(entry.path()) : "");
        return content;
    }
};

TEST_F(OpenTest, Refusals) {
    struct Case {
        ErrorKind kind;
        std::function<void(const path& file)> make;  // the file begins as a copy of the template
    };
    const std::string good = Content(path_);
    const std::vector<Case> cases{
        {ErrorKind::Missing, [](const path& file) { std::filesystem::remove(file); }},
        {ErrorKind::Empty, [](const path& file) { Write(file, ""); }},
        {ErrorKind::Jet,
         [](const path& file) { Write(file, std::string("\0\1\0\0Standard Jet DB\0xyz", 23)); }},
        {ErrorKind::NotADatabase, [](const path& file) { Write(file, "a letter to a friend"); }},
        {ErrorKind::NotADatabase,
         [](const path& file) {
             std::filesystem::remove(file);
             std::filesystem::create_directory(file);
         }},
        {ErrorKind::Damaged, [&](const path& file) { Write(file, good.substr(0, 50)); }},
        {ErrorKind::Damaged, [&](const path& file) { Write(file, good.substr(0, good.size() - 4096)); }},
        {ErrorKind::Damaged, [&](const path& file) { Write(file, good.substr(0, good.size() - 1)); }},
        {ErrorKind::Damaged, [&](const path& file) { Write(file, good + "x"); }},
        {ErrorKind::Damaged,
         [&](const path& file) { Write(file, std::string(good).replace(4096 * 2, 4096, 4096, 'x')); }},
        {ErrorKind::Foreign, [](const path& file) { test::RunRawSql(file, "pragma application_id=7"); }},
        {ErrorKind::Foreign,
         [](const path& file) {
             std::filesystem::remove(file);
             test::RunRawSql(file, "pragma journal_mode=wal; create table Tables (x)");
         }},
        {ErrorKind::Foreign, [](const path& file) { test::RunRawSql(file, "drop table Errors"); }},
        {ErrorKind::Foreign, [](const path& file) { test::RunRawSql(file, "drop index TableIDColName"); }},
        {ErrorKind::Newer,
         [](const path& file) { test::RunRawSql(file, "pragma user_version=2; drop table Errors"); }},
    };
    for (const Case& refused : cases) {
        std::filesystem::remove_all(path_);
        Write(path_, good);
        refused.make(path_);
        const std::string before = FolderContent();
        try {
            static_cast<void>(Open());
            ADD_FAILURE() << KindName(refused.kind) << " was opened";
        } catch (const DatabaseError& error) {
            EXPECT_EQ(KindName(error.Kind()), KindName(refused.kind)) << error.what();
            EXPECT_NE(std::string(error.what()).find(path_.string()), std::string::npos) << error.what();
        }
        EXPECT_EQ(FolderContent(), before) << KindName(refused.kind);
    }
}

TEST_F(OpenTest, TheFieldForOriginsMayBeMissing) {
    test::RunRawSql(path_, "alter table Tables drop column CVRL; alter table Columns drop column CVRL");
    EXPECT_EQ(Count(*Open(), "SQLTypes"), 19);
}

TEST_F(OpenTest, WhatAKilledProgramLeftHalfDoneIsNoDamage) {
    const auto size = std::filesystem::file_size(path_);
    ASSERT_TRUE(HoldsInChild([&]() -> bool {
        const auto database = Open();
        const Transaction killed(*database);
        const std::string large(5'000'000, 'x');
        database->Execute("insert into ProjectSettings(PropName,PropValue) values('a','" + large + "')");
        _exit(0);
    }));
    ASSERT_GT(std::filesystem::file_size(path_), size);
    std::ofstream(path_, std::ios::app) << "half a page";
    EXPECT_EQ(Count(*Open(), "ProjectSettings"), 0);
}

TEST_F(OpenTest, BusyWhileAnotherWrites) {
    const auto first = Open();
    const Transaction writing(*first);
    EXPECT_EQ(KindThrown([&] { static_cast<void>(Open()); }), ErrorKind::Busy);
}

// Permissions bind the superuser only in another user's clothes.
TEST_F(OpenTest, ReadOnlyFileOrFolder) {
    using std::filesystem::perms;
    const auto all = perms::all;
    const auto reading = perms::owner_read | perms::owner_exec | perms::group_read | perms::group_exec |
                         perms::others_read | perms::others_exec;
    for (const auto& [folder, file] : {std::pair{reading, all}, std::pair{all, reading}}) {
        std::filesystem::permissions(folder_.Path(), folder);
        std::filesystem::permissions(path_, file);
        EXPECT_TRUE(HoldsInChild([&] {
            if (geteuid() == 0 && setuid(65534) != 0) return false;
            return KindThrown([&] { static_cast<void>(Open()); }) == ErrorKind::ReadOnly;
        }));
        std::filesystem::permissions(folder_.Path(), all);
    }
}

TEST_F(OpenTest, KeepsItsJournalOnlyWhileOpen) {
    {
        const auto database = Open();
        database->Execute("insert into ProjectSettings(PropName,PropValue) values('a','b')");
        EXPECT_EQ(folder_.Names(), (std::set<std::string>{"DBSchema.mdb", "DBSchema.mdb-journal"}));
        EXPECT_GT(std::filesystem::file_size(path_.string() + "-journal"), 0U);
    }
    EXPECT_EQ(folder_.Names(), std::set<std::string>{"DBSchema.mdb"});
    EXPECT_EQ(Count(*Open(), "ProjectSettings"), 1);
}

}  // namespace
}  // namespace tessel::db

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <functional>
#include <optional>

#include "platform/files/file_service.h"
#include "support/child_process.h"
#include "support/temporary_folder.h"
#include "tessel/error.h"

namespace tessel::files {
namespace {

std::optional<ErrorKind> KindThrown(const std::function<void()>& action) {
    try {
        action();
        return std::nullopt;
    } catch (const Error& error) {
        return error.Kind();
    }
}

bool FailsWhenFull(const std::function<void()>& action) {
    return HoldsInChild([&] {
        FillDisk(1000);
        return KindThrown(action) == ErrorKind::Full;
    });
}

unsigned Rights(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
}

TEST(ReplaceFile, GivesTheContentAndLeavesNothingElse) {
    const TemporaryFolder folder;
    for (const auto* content : {"first", "", "second"}) {
        ReplaceFile(folder.Path() + "\\file", content);
        EXPECT_EQ(Content((folder / "file")), content);
    }
    CopyFile((folder / "file"), (folder / "copy"));
    CopyFile((folder / "copy"), (folder / "copy"));
    EXPECT_EQ(Content((folder / "copy")), "second");
    EXPECT_EQ(folder.Names(), (std::set<std::string>{"copy", "file"}));
}

TEST(ReplaceFile, KeepsRightsAndGivesNewFilesTheUsualOnes) {
    const TemporaryFolder folder;
    Write((folder / "file"), "old");
    chmod((folder / "file").c_str(), 0640);
    ReplaceFile((folder / "file"), "new");
    EXPECT_EQ(Rights((folder / "file")), 0640U);

    chmod((folder / "file").c_str(), 0444);
    const auto mask = umask(027);
    CopyFile((folder / "file"), (folder / "copy"));
    umask(mask);
    EXPECT_EQ(Rights((folder / "copy")), 0640U);
}

TEST(ReplaceFile, FollowsLinks) {
    const TemporaryFolder folder;
    CreateFolder((folder / "deep"));
    Write((folder / "deep/file"), "old");
    std::filesystem::create_symlink("deep/inner", (folder / "link"));
    std::filesystem::create_symlink("file", (folder / "deep/inner"));
    std::filesystem::create_symlink("deep/made", (folder / "dangling"));
    std::filesystem::create_symlink("loop", (folder / "loop"));
    ReplaceFile((folder / "link"), "new");
    ReplaceFile((folder / "dangling"), "made");
    EXPECT_EQ(Content((folder / "deep/file")), "new");
    EXPECT_EQ(Content((folder / "deep/made")), "made");
    EXPECT_TRUE(std::filesystem::is_symlink((folder / "link")));
    EXPECT_EQ(KindThrown([&] { ReplaceFile((folder / "loop"), ""); }), ErrorKind::File);
}

TEST(PlaceNewFile, CopiesOnlyToWhereNothingIs) {
    const TemporaryFolder folder;
    Write((folder / "file"), "first");
    Write((folder / "other"), "second");
    CreateFolder((folder / "folder"));
    EXPECT_TRUE(PlaceNewFile((folder / "file"), folder.Path() + "\\new"));
    EXPECT_EQ(Content((folder / "new")), "first");
    for (const auto* taken : {"new", "folder"})
        EXPECT_FALSE(PlaceNewFile((folder / "other"), (folder / taken)));
    EXPECT_EQ(Content((folder / "new")), "first");
    EXPECT_EQ(KindThrown([&] { PlaceNewFile((folder / "none"), (folder / "n")); }), ErrorKind::File);
    EXPECT_EQ(folder.Names(), (std::set<std::string>{"file", "folder", "new", "other"}));
}

// The number of a process that lives no longer.
std::string EndedProcess() {
    const auto child = fork();
    if (child == 0) _exit(0);
    waitpid(child, nullptr, 0);
    return std::to_string(child);
}

TEST(LeftBehind, GoesWhenItsProgramIsGoneAndNothingElseDoes) {
    const TemporaryFolder folder;
    const std::string gone = EndedProcess();
    const std::string alive = std::to_string(getppid());
    const std::string user = folder / "user";
    CreateFolder(user);
    Write(user + "/file", "x");
    const auto longAgo = std::filesystem::file_time_type::clock::now() - std::chrono::hours(25);
    std::set<std::string> kept{"user", ".tessel-link", ".tessel-deleted-" + gone + "-1"};
    for (const std::string& name :
         {"-" + gone, "-" + gone + "-", "-" + gone + "-0x", std::string("-0-0"), std::string("--1-0"),
          std::string("-notes"), std::string("-99999999999-0"), "-" + alive + "-0"}) {
        Write(folder / (".tessel" + name), "x");
        std::filesystem::last_write_time(folder / (".tessel" + name), longAgo);
        CreateFolder(folder / (".tessel-deleted" + name));
        kept.insert({".tessel" + name, ".tessel-deleted" + name});
    }
    Write(folder / (".tessel-" + gone + "-1"), "of another machine's program, for all we know");
    kept.insert(".tessel-" + gone + "-1");
    std::filesystem::create_directory_symlink("user", folder / ".tessel-link");
    std::filesystem::create_directory_symlink("user", folder / (".tessel-deleted-" + gone + "-1"));

    for (const auto& action : std::vector<std::function<void()>>{[&] { ReplaceFile(folder / "new", ""); },
                                                                 [&] { CreateFolder(folder / "new"); },
                                                                 [&] { DeleteFolder(folder / "none"); }}) {
        Write(folder / (".tessel-" + gone + "-0"), "x");
        std::filesystem::last_write_time(folder / (".tessel-" + gone + "-0"), longAgo);
        std::filesystem::create_directories(folder / (".tessel-deleted-" + gone + "-0/inner"));
        action();
        std::filesystem::remove(folder / "new");
        EXPECT_EQ(folder.Names(), kept);
    }
    EXPECT_EQ(Content(user + "/file"), "x");
}

TEST(DeleteFolder, TakesAFreeNameForWhatItDeletes) {
    const TemporaryFolder folder;
    const std::string taken = ".tessel-deleted-" + std::to_string(getpid()) + "-0";
    std::filesystem::create_directories(folder / (taken + "/inner"));
    std::filesystem::create_directories(folder / "schema/inner");
    DeleteFolder(folder / "schema");
    EXPECT_EQ(folder.Names(), std::set<std::string>{taken});
}

TEST(ReplaceFile, AFullDiskLeavesTheOldFileAlone) {
    const TemporaryFolder folder;
    Write((folder / "file"), "old");
    Write((folder / "large"), std::string(5000, 'x'));
    EXPECT_TRUE(FailsWhenFull([&] { ReplaceFile((folder / "file"), std::string(5000, 'x')); }));
    EXPECT_TRUE(FailsWhenFull([&] { CopyFile((folder / "large"), (folder / "file")); }));
    EXPECT_TRUE(FailsWhenFull([&] { PlaceNewFile((folder / "large"), (folder / "none")); }));
    EXPECT_EQ(Content((folder / "file")), "old");
    EXPECT_EQ(folder.Names(), (std::set<std::string>{"file", "large"}));
}

TEST(ReplaceFile, RefusesWhatCannotBeReplaced) {
    const TemporaryFolder folder;
    CreateFolder((folder / "folder"));
    mkfifo((folder / "pipe").c_str(), 0666);
    EXPECT_EQ(KindThrown([&] { ReplaceFile((folder / "folder"), ""); }), ErrorKind::File);
    EXPECT_EQ(KindThrown([&] { ReplaceFile((folder / "pipe"), ""); }), ErrorKind::File);
    EXPECT_EQ(KindThrown([&] { CopyFile((folder / "none"), (folder / "file")); }), ErrorKind::File);
    EXPECT_EQ(folder.Names(), (std::set<std::string>{"folder", "pipe"}));
}

TEST(ReplaceFile, WithoutTheRightToWriteItIsReadOnlyAndTheFolderNeedNotBeRead) {
    const TemporaryFolder folder;
    CreateFolder((folder / "folder"));
    Write((folder / "folder/file"), "old");
    chmod((folder / "folder/file").c_str(), 0444);
    // Root writes everywhere, so a process of an ordinary user tries it.
    chmod(folder.Path().c_str(), 0755);
    chmod((folder / "folder").c_str(), 0333);
    EXPECT_TRUE(HoldsInChild([&] {
        constexpr uid_t nobody = 65534;
        if (geteuid() == 0 && setuid(nobody) != 0) return false;
        ReplaceFile((folder / "folder/made"), "made");
        return KindThrown([&] { ReplaceFile((folder / "folder/file"), "new"); }) == ErrorKind::ReadOnly;
    }));
    chmod((folder / "folder").c_str(), 0777);  // so that it can be removed
    EXPECT_EQ(Content((folder / "folder/made")), "made");
    EXPECT_EQ(Content((folder / "folder/file")), "old");
}

}  // namespace
}  // namespace tessel::files

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <functional>
#include <optional>

#include "platform/files/child_process.h"
#include "platform/files/file_service.h"
#include "platform/files/temporary_folder.h"
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
        EXPECT_EQ(Content(folder.At("file")), content);
    }
    CopyFile(folder.At("file"), folder.At("copy"));
    CopyFile(folder.At("copy"), folder.At("copy"));
    EXPECT_EQ(Content(folder.At("copy")), "second");
    EXPECT_EQ(folder.Names(), (std::set<std::string>{"copy", "file"}));
}

TEST(ReplaceFile, KeepsRightsAndGivesNewFilesTheUsualOnes) {
    const TemporaryFolder folder;
    Write(folder.At("file"), "old");
    chmod(folder.At("file").c_str(), 0640);
    ReplaceFile(folder.At("file"), "new");
    EXPECT_EQ(Rights(folder.At("file")), 0640U);

    chmod(folder.At("file").c_str(), 0444);
    const auto mask = umask(027);
    CopyFile(folder.At("file"), folder.At("copy"));
    umask(mask);
    EXPECT_EQ(Rights(folder.At("copy")), 0640U);
}

TEST(ReplaceFile, FollowsLinks) {
    const TemporaryFolder folder;
    CreateFolder(folder.At("deep"));
    Write(folder.At("deep/file"), "old");
    std::filesystem::create_symlink("deep/inner", folder.At("link"));
    std::filesystem::create_symlink("file", folder.At("deep/inner"));
    std::filesystem::create_symlink("deep/made", folder.At("dangling"));
    std::filesystem::create_symlink("loop", folder.At("loop"));
    ReplaceFile(folder.At("link"), "new");
    ReplaceFile(folder.At("dangling"), "made");
    EXPECT_EQ(Content(folder.At("deep/file")), "new");
    EXPECT_EQ(Content(folder.At("deep/made")), "made");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.At("link")));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.At("deep/inner")));
    EXPECT_EQ(KindThrown([&] { ReplaceFile(folder.At("loop"), ""); }), ErrorKind::File);
}

TEST(ReplaceFile, AFullDiskLeavesTheOldFileAlone) {
    const TemporaryFolder folder;
    Write(folder.At("file"), "old");
    Write(folder.At("large"), std::string(5000, 'x'));
    EXPECT_TRUE(FailsWhenFull([&] { ReplaceFile(folder.At("file"), std::string(5000, 'x')); }));
    EXPECT_TRUE(FailsWhenFull([&] { CopyFile(folder.At("large"), folder.At("file")); }));
    EXPECT_TRUE(FailsWhenFull([&] { CopyFile(folder.At("large"), folder.At("none")); }));
    EXPECT_EQ(Content(folder.At("file")), "old");
    EXPECT_EQ(folder.Names(), (std::set<std::string>{"file", "large"}));
}

TEST(ReplaceFile, RefusesWhatCannotBeReplaced) {
    const TemporaryFolder folder;
    CreateFolder(folder.At("folder"));
    mkfifo(folder.At("pipe").c_str(), 0666);
    EXPECT_EQ(KindThrown([&] { ReplaceFile(folder.At("folder"), ""); }), ErrorKind::File);
    EXPECT_EQ(KindThrown([&] { ReplaceFile(folder.At("pipe"), ""); }), ErrorKind::File);
    EXPECT_EQ(KindThrown([&] { ReplaceFile(folder.At("none/file"), ""); }), ErrorKind::File);
    EXPECT_EQ(KindThrown([&] { CopyFile(folder.At("none"), folder.At("file")); }), ErrorKind::File);
    EXPECT_EQ(folder.Names(), (std::set<std::string>{"folder", "pipe"}));
}

TEST(ReplaceFile, WithoutTheRightToWriteItIsReadOnly) {
    const TemporaryFolder folder;
    CreateFolder(folder.At("folder"));
    Write(folder.At("folder/file"), "old");
    chmod(folder.At("folder/file").c_str(), 0444);
    // Root writes everywhere, so a process of an ordinary user tries it.
    chmod(folder.Path().c_str(), 0755);
    chmod(folder.At("folder").c_str(), 0777);
    EXPECT_TRUE(HoldsInChild([&] {
        constexpr uid_t nobody = 65534;
        if (geteuid() == 0 && setuid(nobody) != 0) return false;
        return KindThrown([&] { ReplaceFile(folder.At("folder/file"), "new"); }) == ErrorKind::ReadOnly;
    }));
    EXPECT_EQ(Content(folder.At("folder/file")), "old");
}

}  // namespace
}  // namespace tessel::files

#include "platform/files/file_service.h"

#include <gtest/gtest.h>

#include "platform/files/temporary_folder.h"
#include "tessel/error.h"

namespace tessel::files {
namespace {

TEST(FileService, PathsTakeBothSeparators) {
    EXPECT_EQ(NativePath(R"(/w\Projects/A\A.mdb)"), "/w/Projects/A/A.mdb");
    EXPECT_EQ(NativePath("/w/..a/b../..."), "/w/..a/b../...");
    const std::string_view refused[] = {"..", "/w/../x", R"(a\..\b)", R"(/w\..)",
                                        std::string_view("a\0b", 3)};
    for (const auto path : refused) {
        EXPECT_THROW((void)NativePath(path), Error) << path;
        EXPECT_THROW((void)FileExists(path), Error) << path;
        EXPECT_THROW(CreateFolder(path), Error) << path;
        EXPECT_THROW(DeleteFolder(path), Error) << path;
        EXPECT_THROW((void)SplitPath(path), Error) << path;
        EXPECT_THROW(ReplaceFile(path, ""), Error) << path;
    }
}

TEST(FileService, FilesAndFoldersAreToldApart) {
    const TemporaryFolder folder;
    Write(folder.At("file"), "x");
    EXPECT_TRUE(FileExists(folder.Path() + "\\file"));
    EXPECT_FALSE(FileExists(folder.Path()));
    EXPECT_FALSE(FileExists(folder.At("none/file")));
    EXPECT_FALSE(FileExists(folder.At("file/below")));
    EXPECT_TRUE(FolderExists(folder.Path() + "\\"));
    EXPECT_FALSE(FolderExists(folder.At("file")));
    EXPECT_THROW((void)FileExists(folder.At(std::string(300, 'x'))), Error);
}

TEST(FileService, FoldersAreMadeAndDeleted) {
    const TemporaryFolder folder;
    EXPECT_THROW(CreateFolder(folder.At("a/b")), Error);
    CreateFolder(folder.At("a"));
    CreateFolder(folder.Path() + "\\a\\b");
    Write(folder.At("a/b/file"), "x");
    EXPECT_THROW(CreateFolder(folder.At("a/b/file")), Error);
    EXPECT_THROW(DeleteFolder(folder.At("a/b/file")), Error);
    EXPECT_EQ(Content(folder.At("a/b/file")), "x");
    DeleteFolder(folder.At("a"));
    EXPECT_TRUE(folder.Names().empty());
    DeleteFolder(folder.At("a"));
}

TEST(FileService, DeletingALinkedFolderKeepsWhereItLeads) {
    const TemporaryFolder folder;
    CreateFolder(folder.At("target"));
    Write(folder.At("target/file"), "x");
    std::filesystem::create_directory_symlink("target", folder.At("link"));
    DeleteFolder(folder.At("link"));
    EXPECT_EQ(folder.Names(), std::set<std::string>{"target"});
    EXPECT_EQ(Content(folder.At("target/file")), "x");
}

TEST(FileService, PathsSplitAtTheLastSeparatorAndDot) {
    struct Case {
        std::string_view path, folder, baseName, extension;
    };
    const Case cases[] = {
        {R"(/w\P/A.mdb)", R"(/w\P)", "A", ".mdb"},
        {R"(/w/P.x\A)", "/w/P.x", "A", ""},
        {"A.dgm.xml", "", "A.dgm", ".xml"},
        {"/.hidden", "", ".hidden", ""},
        {"/w/A.", "/w", "A", "."},
        {"/w/", "/w", "", ""},
    };
    for (const auto& [path, folder, baseName, extension] : cases) {
        const auto parts = SplitPath(path);
        EXPECT_EQ(parts.folder, folder) << path;
        EXPECT_EQ(parts.baseName, baseName) << path;
        EXPECT_EQ(parts.extension, extension) << path;
    }
}

TEST(FileService, ReadFileTakesEveryByte) {
    const TemporaryFolder folder;
    std::string content(200000, 'x');
    content[0] = '\0';
    content[70000] = '\r';
    Write(folder.At("file"), content);
    EXPECT_EQ(ReadFile(folder.At("file")), content);
    EXPECT_THROW((void)ReadFile(folder.At("none")), Error);
    EXPECT_THROW((void)ReadFile(folder.Path()), Error);
}

}  // namespace
}  // namespace tessel::files

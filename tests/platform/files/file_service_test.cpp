#include "platform/files/file_service.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"
#include "tessel/error.h"

namespace tessel::files {
namespace {

TEST(FileService, PathsTakeBothSeparators) {
    EXPECT_EQ(NativePath(R"(/w\Projects/A\A.mdb)"), "/w/Projects/A/A.mdb");
    const std::string_view refused[] = {"..", "/w/../x", R"(a\..\b)", R"(/w\..)",
                                        std::string_view("a\0b", 3)};
    for (const auto path : refused) {
        EXPECT_THROW((void)NativePath(path), Error) << path;
        EXPECT_THROW(CreateFolder(path), Error) << path;
        EXPECT_THROW(DeleteFolder(path), Error) << path;
        EXPECT_THROW(ReplaceFile(path, ""), Error) << path;
    }
}

TEST(FileService, FilesAndFoldersAreToldApart) {
    const TemporaryFolder folder;
    Write((folder / "file"), "x");
    EXPECT_TRUE(FileExists(folder.Path() + "\\file"));
    EXPECT_FALSE(FileExists(folder.Path()));
    EXPECT_FALSE(FileExists((folder / "file/below")));
    EXPECT_TRUE(FolderExists(folder.Path() + "\\"));
    EXPECT_THROW((void)FileExists(folder / std::string(300, 'x')), Error);
}

TEST(FileService, FoldersAreMadeAndDeleted) {
    const TemporaryFolder folder;
    EXPECT_THROW(CreateFolder((folder / "a/b")), Error);
    CreateFolder((folder / "a"));
    CreateFolder(folder.Path() + "\\a\\b");
    Write((folder / "a/b/file"), "x");
    EXPECT_THROW(CreateFolder((folder / "a/b/file")), Error);
    std::filesystem::create_directory_symlink("a/b", (folder / "link"));
    DeleteFolder((folder / "link"));  // and not where it leads
    EXPECT_EQ(Content((folder / "a/b/file")), "x");
    for (int time = 0; time < 2; ++time) DeleteFolder((folder / "a"));
    EXPECT_TRUE(folder.Names().empty());
}

TEST(FileService, PathsSplitAtTheLastSeparatorAndDot) {
    struct Case {
        std::string_view path, folder, baseName, extension;
    };
    const Case cases[] = {
        {R"(/w\P/A.mdb)", R"(/w\P)", "A", ".mdb"},
        {R"(/w/P.x\A)", "/w/P.x", "A", ""},
        {"A.dgm.xml", "", "A.dgm", ".xml"},
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
    Write((folder / "file"), content);
    EXPECT_EQ(ReadFile((folder / "file")), content);
    EXPECT_THROW((void)ReadFile(folder.Path()), Error);
}

}  // namespace
}  // namespace tessel::files

#include "workbench/workspace_folder.h"

#include <gtest/gtest.h>

#include <functional>

#include "support/child_process.h"
#include "support/temporary_folder.h"
#include "tessel/error.h"

namespace tessel::workbench {
namespace {

namespace fs = std::filesystem;

std::string FaultOf(const std::function<void()>& action) {
    try {
        action();
        return "none";
    } catch (const Error& error) {
        return error.what();
    }
}

bool Mentions(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

TEST(WorkspaceFolder, IsMadeWithOneProject) {
    const TemporaryFolder folder;
    const auto made = WorkspaceFolder::Create((folder / "a/../new/"), "Orders");
    EXPECT_EQ(made.Path(), (folder / "new"));
    for (const auto* part : {"new/Projects/Orders", "new/Output", "new/Options"}) {
        EXPECT_TRUE(fs::is_directory((folder / part))) << part;
    }
    EXPECT_EQ(made.Projects(), std::vector<std::string>{"Orders"});
    EXPECT_EQ(made.Name(), "new");

    fs::create_directory((folder / "empty"));
    EXPECT_EQ(WorkspaceFolder::Create((folder / "empty"), "Orders").ChooseProject(std::nullopt), "Orders");
}

TEST(WorkspaceFolder, IsNeitherMadeOverAnythingNorOpenedWithoutItsFile) {
    const TemporaryFolder folder;
    Write((folder / "file"), "x");
    fs::create_directory((folder / "back\\slash"));
    for (const auto& path :
         {folder.Path(), (folder / "file"), (folder / "none/below"), (folder / "back\\slash")}) {
        EXPECT_THROW(WorkspaceFolder::Create(path, "Orders"), Error) << path;
    }
    EXPECT_THROW(WorkspaceFolder::Create((folder / "new"), "a/b"), Error);
    EXPECT_THROW(WorkspaceFolder::Open(folder / "none"), Error);
    Write(folder / "back\\slash/workspace.xml", "<workspace next='1'/>");
    EXPECT_TRUE(Mentions(FaultOf([&] { WorkspaceFolder::Open(folder / "back\\slash"); }), "holds a '\\'"));
    EXPECT_EQ(folder.Names(), (std::set<std::string>{"back\\slash", "file"}));
    EXPECT_EQ(Content((folder / "file")), "x");
}

TEST(WorkspaceFolder, ABrokenOffCreationLeavesNothing) {
    const TemporaryFolder folder;
    EXPECT_TRUE(HoldsInChild([&] {
        FillDisk(50);  // too small for any of its files
        return FaultOf([&] { WorkspaceFolder::Create((folder / "new"), "Orders"); }) != "none";
    }));
    EXPECT_TRUE(folder.Names().empty());
}

TEST(WorkspaceFolder, OpensByItsTruePath) {
    const TemporaryFolder folder;
    WorkspaceFolder::Create((folder / "new"), "Orders");
    fs::create_directory_symlink("new", (folder / "link"));
    for (const auto* path : {"new", "new/.", "new/Output/..", "link/"}) {
        EXPECT_EQ(WorkspaceFolder::Open((folder / path)).Path(), (folder / "new")) << path;
    }
    Write((folder / "new/workspace.xml"), "<workspace name='Shop' next='1'/>");
    EXPECT_EQ(WorkspaceFolder::Open((folder / "new")).Name(), "Shop");
}

TEST(WorkspaceFolder, DamagedFilesAreRefusedUnchanged) {
    const std::pair<std::string, std::string> cases[] = {
        {"", "workspace.xml, line 1"},
        {"<workspace next='2'>\n<objects>", "workspace.xml, line 2"},
        {"<other next='1'/>", "root element"},
        {"<workspace/>", "\"next\""},
        {"<workspace next='x1'/>", "\"next\""},
        {"<workspace next='1'><objects><object id='O1'/></objects></workspace>", "\"type\""},
        {"<workspace next='1'><objects><object type='T'/></objects></workspace>", "\"id\""},
        {"<workspace next='1'><objects><object id='a' type='T'/><object id='a' "
         "type='T'/></objects></workspace>",
         "a"},
        {"<workspace next='1'><relations><relation name='r' from='a'/></relations></workspace>", "\"to\""},
    };
    for (const auto& [content, fault] : cases) {
        const TemporaryFolder folder;
        Write((folder / "workspace.xml"), content);
        const auto message = FaultOf([&] { WorkspaceFolder::Open(folder.Path()); });
        EXPECT_TRUE(Mentions(message, fault) && Mentions(message, (folder / "workspace.xml"))) << message;
        EXPECT_EQ(Content((folder / "workspace.xml")), content);
    }
}

TEST(WorkspaceFolder, TheProjectIsChosenByNameOrAlone) {
    const TemporaryFolder folder;
    Write((folder / "workspace.xml"),
          "<workspace next='1'><objects>"
          "<object id='a' type='PROJECT'><attribute name='Name' value='Orders'/></object>"
          "<object id='b' type='TABLE'><attribute name='Name' value='CUSTOMER'/></object>"
          "<object id='c' type='PROJECT'><attribute name='Name' value='Stock'/></object>"
          "</objects></workspace>");
    const auto workspace = WorkspaceFolder::Open(folder.Path());
    EXPECT_EQ(workspace.ChooseProject("Stock"), "Stock");
    for (const std::optional<std::string>& name : {std::optional<std::string>(), {"stock"}, {"CUSTOMER"}}) {
        const auto fault = FaultOf([&] { (void)workspace.ChooseProject(name); });
        EXPECT_TRUE(Mentions(fault, "Orders, Stock.")) << fault;
    }
    Write((folder / "workspace.xml"), "<workspace next='1'/>");
    EXPECT_THROW((void)WorkspaceFolder::Open(folder.Path()).ChooseProject("Orders"), Error);
}

}  // namespace
}  // namespace tessel::workbench

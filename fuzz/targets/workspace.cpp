// Any bytes in workspace.xml and in the option files are read or refused, with any XPath, and what was read
// can be used and changed; a project is never opened, nor made, outside its workspace. The first line is an
// XPath, what follows is the file.

#include "engine/tessel_engine.h"
#include "fuzz/input.h"
#include "fuzz/raw_database.h"
#include "runner/add_on_menu.h"
#include "runner/component_list.h"
#include "support/temporary_folder.h"
#include "ui/rules/option_case.h"
#include "ui/rules/project_options.h"
#include "workbench/stand_alone_frontend.h"

namespace tessel::fuzz {
namespace {

namespace fs = std::filesystem;

void Walk(const xml::Element& element, int depth) {
    (void)element.Attribute(element.Name());
    if (depth > 0)
        for (const auto& child : element.Children()) Walk(child, depth - 1);
}

// What a document is stored as reads back as the same.
void ReadDocument(const std::string& text, const std::string& xpath) {
    auto document = xml::Document::Parse(text, "input");
    Succeeds([&] { Walk(document.SelectSingleNode(xpath), 3); });
    const std::string stored = document.Text();
    Require(Succeeds([&] { document = xml::Document::Parse(stored, "stored"); }),
            "A stored document is refused: " + stored);
    Require(document.Text() == stored, "A stored document changes: " + stored);
}

struct Workspace {
    Workspace() {
        workbench::WorkspaceFolder::Create(Path(), "Main");
        original = Content(Path() + "/workspace.xml");
    }
    [[nodiscard]] std::string Path() const { return folder / "w"; }

    TemporaryFolder folder;
    std::string original;
};

void UseObjects(workbench::RepositoryContents& contents) {
    for (const char* type : {"PROJECT", "TABLE", "DBSCHEMA"})
        for (const auto& identifier : contents.ObjectsOf("O1", type)) {
            for (const auto& name : contents.AttributeNames(identifier))
                (void)contents.Attribute(identifier, name);
            (void)contents.Related(identifier, "IncludesDBSchema");
        }
    const auto identifier = contents.TakeIdentifier();
    contents.AddObject(identifier, "TABLE");
    contents.SetAttributes(identifier, {{"Name", "N"}, {"Name", "M"}});
    contents.AddRelation(identifier, "Uses", identifier);
    Require(contents.Find("TABLE", "M").has_value(), "A new object is not found.");
}

void OpenProject(const workbench::WorkspaceFolder& folder, const std::string& project) {
    ComponentState state;
    const auto frontend =
        std::make_shared<workbench::StandAloneFrontend>(folder, project, std::string(TESSEL_SHARE), "en");
    frontend->Log()->Write("opened", "");
    (void)TesselEngine(state).Run(frontend, Missing{}, Missing{});
}

void OpenWorkspace(const std::string& path) {
    const auto folder = workbench::WorkspaceFolder::Open(path);
    Succeeds([&] { folder.File()->Change(UseObjects); });
    (void)folder.Name();
    const auto projects = folder.Projects();
    for (std::size_t i = 0; i < projects.size() && i < 2; ++i)
        Succeeds([&] { OpenProject(folder, folder.ChooseProject(projects[i])); });
}

void UseOptions(const std::string& path) {
    const text::Texts texts(std::string(TESSEL_SHARE) + "/texts", "en");
    workbench::StandAloneFrontend frontend(workbench::WorkspaceFolder::Open(path), "Main", TESSEL_SHARE,
                                           "en");
    Succeeds([&] { (void)ImportAtStart(frontend); });
    Succeeds([&] { (void)ReadAddOnMenu(frontend.GlobalOptions(), texts); });
    (void)ReadComponents(path + "/Options/global.xml");
    Succeeds([&] { (void)frontend.WorkspaceOptions().SelectSingleNode(optionCase); });
    const auto options = frontend.ProjectOptions();
    OptionCase edited(*options, optionCase, texts);
    for (const auto& option : edited.Root().options) edited.Set(option, option.value + "1");
    edited.Save();
}

void Use(const Workspace& workspace, const std::string& text) {
    fs::create_directories(workspace.Path() + "/Options");
    fs::create_directories(workspace.Path() + "/Projects/Main");
    for (const char* options : {"project", "workspace", "global"})
        Write(workspace.Path() + "/Options/" + options + ".xml", text);
    Write(workspace.Path() + "/workspace.xml", workspace.original);
    Succeeds([&] { UseOptions(workspace.Path()); });
    Write(workspace.Path() + "/workspace.xml", text);
    Succeeds([&] { OpenWorkspace(workspace.Path()); });
}

}  // namespace
}  // namespace tessel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tessel::fuzz;
    RenewEngineBudget();
    static const Workspace workspace;
    Input input(data, size);
    const std::string xpath = input.Line();
    const std::string text = input.Rest();
    Succeeds([&] { ReadDocument(text, xpath); });
    Use(workspace, text);
    Require(workspace.folder.Names() == std::set<std::string>{"w"},
            "Something was made outside the workspace.");
    fs::remove_all(workspace.Path() + "/Projects");
    return 0;
}

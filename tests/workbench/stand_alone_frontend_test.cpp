#include "workbench/stand_alone_frontend.h"

#include <gtest/gtest.h>

#include "workbench/workspace_fixture.h"

namespace tessel::workbench {
namespace {

class Frontend : public WorkspaceFixture {
  protected:
    StandAloneFrontend frontend_{Open(), "Orders", "/share/tessel"};
    StandAloneFrontend installed_{Open(), "Orders", TESSEL_SHARE, "ja"};
};

TEST_F(Frontend, GivesItsNames) {
    const std::pair<int, std::string> names[] = {{2, "/share/tessel"}, {3, "/share/tessel"},
                                                 {4, (folder_ / "w")}, {6, "w"},
                                                 {7, "Orders"},        {13, "/share/tessel"}};
    for (const auto& [item, name] : names) EXPECT_EQ(frontend_.GetCorvaneName(item), name) << item;
    for (const int item : {0, 1, 5, 14}) {
        EXPECT_EQ(KindThrown([&] { (void)frontend_.GetCorvaneName(item); }), ErrorKind::Host) << item;
    }
}

TEST_F(Frontend, OptionsHoldTheEncodingOfTheObjectComputer) {
    const auto option =
        frontend_.WorkspaceOptions().SelectSingleNode(".//LIST[@NAME='ObjectComputerEncoding']");
    EXPECT_EQ(option.Attribute("VALUE"), "ASCII");
    std::filesystem::remove((folder_ / "w/Options/workspace.xml"));
    StandAloneFrontend without(Open(), "Orders", "");
    EXPECT_EQ(KindThrown([&] { (void)without.WorkspaceOptions(); }), ErrorKind::File);
}

TEST_F(Frontend, GlobalOptionsAreTheInstallationsOrTheFileReadAnewWhenItChanges) {
    const std::string path = "//CASE[@ID='Vantrel']/LIST[@NAME='AddOns']";
    const std::string file = folder_ / "w/Options/global.xml";
    const auto tools = [&] { return installed_.GlobalOptions().SelectSingleNode(path).Children().size(); };
    EXPECT_EQ(tools(), 2U);
    Write(file, "<OPTIONS><CASE ID='Vantrel'><LIST NAME='AddOns'/></CASE></OPTIONS>");
    EXPECT_EQ(tools(), 0U);
    Write(file, "<OPTIONS><CASE");
    EXPECT_EQ(KindThrown([&] { (void)installed_.GlobalOptions(); }), ErrorKind::Xml);
    std::filesystem::remove(file);
    EXPECT_EQ(tools(), 2U);
}

TEST_F(Frontend, ProjectOptionsAreTheInstallationsUntilTheyAreSaved) {
    const std::string path = "//CASE[@ID='VNT']/BOOL[@NAME='ImportAtStart']";
    std::filesystem::remove_all(folder_ / "w/Options");
    const auto options = installed_.ProjectOptions();
    EXPECT_EQ(options->Document().SelectSingleNode(path).Attribute("VALUE"), "True");
    auto changed = xml::Document::Parse(options->Document().Text(), "copy");
    changed.SelectSingleNode(path).SetAttribute("VALUE", "False");
    changed.Root().AppendChild("UNKNOWN");
    options->Save(changed);
    StandAloneFrontend later(Open(), "Orders", TESSEL_SHARE);
    for (auto* frontend : {&installed_, &later}) {
        const auto& document = frontend->ProjectOptions()->Document();
        EXPECT_EQ(document.SelectSingleNode(path).Attribute("VALUE"), "False");
        EXPECT_TRUE(document.SelectSingleNode("//UNKNOWN"));
    }
}

TEST_F(Frontend, TheLogTellsWhenTheEditorOpensAndEnds) {
    const std::shared_ptr<Object> window = std::make_shared<StoredRepository>(Open().File());
    installed_.Initiate(window);
    EXPECT_EQ(installed_.Window(), window);
    installed_.Terminate();
    EXPECT_EQ(installed_.Window(), nullptr);
    const auto activities = StandAloneFrontend(Open(), "Orders", "").Log()->Activities();
    ASSERT_EQ(activities.size(), 2U);
    EXPECT_EQ(activities[0].action, "エディターを開きました");
    EXPECT_EQ(activities[1].action, "エディターを閉じました");
}

TEST_F(Frontend, KindIsAnAttributeOrTheType) {
    const auto project = frontend_.ProjectObject();
    for (const auto& [attribute, kind] : {std::pair("DATAPORT", "DATAPORT"), {"", "PROJECT"}}) {
        project->SetAttribute("Kind", attribute);
        EXPECT_EQ(frontend_.ObjectKind(*project), kind);
    }
}

TEST_F(Frontend, LoadsSourceTexts) {
    Write((folder_ / "w/Projects/a.cbl"), "MOVE A TO B.");
    const auto project = frontend_.ProjectObject();
    const auto source = frontend_.LoadSource((folder_ / "w") + "\\Projects\\a.cbl", *project);
    EXPECT_EQ(source->Text(), "MOVE A TO B.");
    EXPECT_EQ(KindThrown([&] { (void)frontend_.LoadSource((folder_ / "none"), *project); }), ErrorKind::File);
}

Value CallOn(const Value& target, std::string_view member, CallKind kind, Arguments arguments = {}) {
    return (*target.As<std::shared_ptr<Object>>())->Call(member, kind, arguments);
}

TEST_F(Frontend, AnswersCallsByName) {
    Arguments none;
    Arguments item{Value(std::int32_t{7})};
    EXPECT_EQ(frontend_.Call("getcorvanename", CallKind::Method, item), Value("Orders"));
    const auto project = frontend_.Call("ProjectObject", CallKind::Get, none);
    const auto repository = frontend_.Call("Repository", CallKind::Get, none);

    const auto schema = CallOn(repository, "NewObject", CallKind::Method, {"DBSCHEMA", "Orders"});
    CallOn(schema, "BeginChange", CallKind::Method);
    CallOn(schema, "SetAttribute", CallKind::Method, {"Source", "x"});
    CallOn(schema, "EndChange", CallKind::Method);
    CallOn(project, "AddRelation", CallKind::Method, {"IncludesDBSchema", schema});

    const auto identifier = CallOn(schema, "Identifier", CallKind::Get);
    const auto found = CallOn(repository, "FindObject", CallKind::Method, {"DBSCHEMA", "Orders"});
    EXPECT_EQ(CallOn(found, "Identifier", CallKind::Get), identifier);
    const auto same = CallOn(repository, "Object", CallKind::Method, {identifier});
    EXPECT_EQ(CallOn(same, "TypeName", CallKind::Get), Value("DBSCHEMA"));
    EXPECT_EQ(CallOn(same, "Label", CallKind::Get), Value("Orders"));
    EXPECT_EQ(CallOn(repository, "EntityIcon", CallKind::Method, {"DBSCHEMA"}), Value("DBSchema.svg"));
    EXPECT_EQ(KindThrown([&] { CallOn(repository, "EntityIcon", CallKind::Method, {"X"}); }),
              ErrorKind::Host);
    EXPECT_EQ(CallOn(same, "Attribute", CallKind::Method, {"Source"}), Value("x"));
    const auto related = CallOn(project, "Related", CallKind::Method, {"IncludesDBSchema"});
    EXPECT_TRUE((*related.As<std::shared_ptr<Collection>>())->HasKey(*identifier.As<std::string>()));
    EXPECT_EQ(KindThrown([&] { CallOn(project, "Delete", CallKind::Method); }), ErrorKind::Member);
}

}  // namespace
}  // namespace tessel::workbench

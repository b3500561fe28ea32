#include <gtest/gtest.h>

#include "workbench/stored_repository.h"
#include "workbench/workspace_fixture.h"

namespace tessel::workbench {
namespace {

using Repository = WorkspaceFixture;

TEST_F(Repository, ANewObjectIsThereFromTheEndOfItsChange) {
    auto repository = OpenRepository();
    const auto object = repository.NewObject("DBSCHEMA", "Orders");
    const auto before = FileText();
    object->BeginChange();
    object->SetAttribute("Source", "first");
    object->SetAttribute("Source", "last");
    EXPECT_EQ(object->Attribute("Source"), Value("last"));
    EXPECT_EQ(object->AttributeNames(), (std::vector<std::string>{"Name", "Source"}));
    EXPECT_EQ(object->Label(), "Orders");
    EXPECT_TRUE(object->Attribute("source").IsNull());
    EXPECT_EQ(KindThrown([&] { repository.FindObject("PROJECT", "Orders")->AddRelation("r", *object); }),
              ErrorKind::Host);
    EXPECT_EQ(KindThrown([&] { (void)repository.ObjectById(object->Identifier()); }), ErrorKind::Host);
    EXPECT_EQ(FileText(), before);
    object->EndChange();

    auto again = OpenRepository();
    const auto found = again.FindObject("DBSCHEMA", "Orders");
    EXPECT_EQ(found->Identifier(), object->Identifier());
    EXPECT_EQ(found->Attribute("Source"), Value("last"));
}

TEST_F(Repository, AttributesAreWrittenAtOnceOrTogetherOrNotAtAll) {
    auto repository = OpenRepository();
    const auto project = repository.FindObject("PROJECT", "Orders");
    const std::string value = "a\tb\r\n\"<あ>&'";
    project->SetAttribute("Note 1", value);
    EXPECT_EQ(OpenRepository().FindObject("PROJECT", "Orders")->Attribute("Note 1"), Value(value));

    project->BeginChange();
    project->SetAttribute("Note 1", "");
    project->SetAttribute("Label", "All orders");
    EXPECT_EQ(project->Attribute("Note 1"), Value(""));
    EXPECT_EQ(project->AttributeNames(), (std::vector<std::string>{"Name", "Note 1", "Label"}));
    EXPECT_EQ(project->Label(), "All orders");
    EXPECT_EQ(OpenRepository().FindObject("PROJECT", "Orders")->Attribute("Note 1"), Value(value));
    project->EndChange();
    EXPECT_EQ(OpenRepository().FindObject("PROJECT", "Orders")->Attribute("Note 1"), Value(""));
    EXPECT_EQ(KindThrown([&] { project->EndChange(); }), ErrorKind::Host);

    const auto before = FileText();
    project->BeginChange();
    project->SetAttribute("Good", "x");
    project->SetAttribute("Bad", std::string("a\0b", 3));
    EXPECT_EQ(KindThrown([&] { project->EndChange(); }), ErrorKind::Xml);
    EXPECT_EQ(FileText(), before);
    EXPECT_TRUE(repository.FindObject("PROJECT", "Orders")->Attribute("Good").IsNull());
}

TEST_F(Repository, NothingIsTakenThatTheFileCouldNotBeReadWith) {
    auto repository = OpenRepository();
    const auto project = repository.FindObject("PROJECT", "Orders");
    for (const auto& [bad, kind] : {std::pair("", ErrorKind::Argument), {"\x01", ErrorKind::Xml}}) {
        const auto object = repository.NewObject(bad, "A");
        object->BeginChange();
        const auto before = FileText();
        EXPECT_EQ(KindThrown([&] { object->EndChange(); }), kind);
        EXPECT_EQ(KindThrown([&] { project->AddRelation(bad, *project); }), kind);
        EXPECT_EQ(KindThrown([&] { project->SetAttribute(bad, "x"); }), kind);
        EXPECT_EQ(FileText(), before);
    }
}

TEST_F(Repository, ObjectsAreFoundByTheirPresentName) {
    auto repository = OpenRepository();
    const auto first = Make(repository, "TABLE", "A");
    const auto second = Make(repository, "TABLE", "A");
    EXPECT_EQ(repository.FindObject("TABLE", "A")->Identifier(), first->Identifier());
    first->SetAttribute("Name", "B");
    EXPECT_EQ(repository.FindObject("TABLE", "A")->Identifier(), second->Identifier());
    EXPECT_EQ(repository.FindObject("TABLE", "B")->Identifier(), first->Identifier());
    Write(
        FilePath(),
        "<workspace next='9'><objects><object id='O7' type='TABLE'/><object id='O8' type='TABLE'><attribute "
        "name='Name' value='A'/></object></objects></workspace>");
    EXPECT_EQ(OpenRepository().FindObject("TABLE", "A")->Identifier(), "O8");
    repository.ObjectById("O7")->SetAttribute("Name", "A");
    EXPECT_EQ(repository.FindObject("TABLE", "A")->Identifier(), "O7");
    for (const auto& [type, name] : {std::pair("TABLE", "a"), {"TABL", "EA"}, {"VIEW", "A"}, {"TABLE", ""}}) {
        EXPECT_EQ(KindThrown([&] { (void)repository.FindObject(type, name); }), ErrorKind::Host)
            << type << name;
    }
}

TEST_F(Repository, RelationsKeepTheirOrderAndDirection) {
    auto repository = OpenRepository();
    const auto project = repository.FindObject("PROJECT", "Orders");
    const auto a = Make(repository, "TABLE", "A");
    const auto b = Make(repository, "TABLE", "B");
    project->AddRelation("Includes", *b);
    project->AddRelation("Includes", *a);
    project->AddRelation("Includes", *b);
    project->AddRelation("Reads", *a);

    auto again = OpenRepository();
    const auto related = again.FindObject("PROJECT", "Orders")->Related("Includes");
    ASSERT_EQ(related.size(), 2U);
    EXPECT_EQ(related[0]->Identifier(), b->Identifier());
    EXPECT_EQ(related[1]->Identifier(), a->Identifier());
    EXPECT_TRUE(again.ObjectById(a->Identifier())->Related("Includes").empty());
    EXPECT_TRUE(project->Related("includes").empty());
}

TEST_F(Repository, AProjectHasItsOwnObjectsAndThoseOfNobody) {
    Write(FilePath(),
          "<workspace next='12'><objects><object id='O1' type='PROJECT'/><object id='O3' type='PROJECT'/>"
          "<object id='O10' type='T'/><object id='O9' type='T'/><object id='O2' type='T'/><object id='O4' "
          "type='U'/><object id='x' type='T'/><object id='O11' type='T'/></objects><relations><relation "
          "name='r' from='O3' to='O2'/><relation name='r' from='O3' to='O9'/><relation name='s' from='O1' "
          "to='O9'/><relation name='s' from='O2' to='x'/></relations></workspace>");
    auto repository = OpenRepository();
    const auto objects = [&](const char* project) {
        std::string found;
        for (const auto& object : repository.PrepareCollection(*repository.ObjectById(project), "T"))
            found += object->Identifier() + " ";
        return found;
    };
    EXPECT_EQ(objects("O1"), "O9 O10 O11 x ");
    EXPECT_EQ(objects("O3"), "O2 O9 O10 O11 x ");
    EXPECT_EQ(repository.TypeNameOf("O4"), "U");
    EXPECT_EQ(repository.TypeNameOf("O5"), "");
    const auto made = Make(repository, "T", "new")->Identifier();
    EXPECT_EQ(objects("O1"), "O9 O10 O11 " + made + " x ");
    EXPECT_EQ(OpenRepository().TypeNameOf(made), "T");
}

TEST_F(Repository, IdentifiersAreNeverUsedAgain) {
    auto repository = OpenRepository();
    const auto dropped = repository.NewObject("TABLE", "A")->Identifier();
    EXPECT_NE(OpenRepository().NewObject("TABLE", "A")->Identifier(), dropped);

    Write(FilePath(),
          "<workspace next='7'><objects><object id='O7' type='T'/><object id='x' type='T'/></objects>"
          "</workspace>");
    EXPECT_EQ(OpenRepository().NewObject("TABLE", "A")->Identifier(), "O8");
    EXPECT_EQ(OpenRepository().NewObject("TABLE", "A")->Identifier(), "O9");
}

TEST_F(Repository, UnknownElementsAndCommentsSurvive) {
    Write(FilePath(),
          "<?xml version=\"1.0\"?>\n<!-- ours -->\n<workspace next=\"3\" theme=\"dark\">\n  "
          "<tools><tool/></tools>\n"
          "  <objects>\n    <!-- the project -->\n    <object id=\"O1\" type=\"PROJECT\" color=\"red\">\n"
          "      <attribute name=\"Name\" value=\"Orders\" since=\"2020\"/>\n      <note>text</note>\n    "
          "</object>\n"
          "    <folder name=\"x\"/>\n  </objects>\n</workspace>\n");
    auto repository = OpenRepository();
    const auto object = Make(repository, "TABLE", "A");
    repository.FindObject("PROJECT", "Orders")->AddRelation("Includes", *object);
    repository.FindObject("PROJECT", "Orders")->SetAttribute("Name", "Stock");
    const auto text = FileText();
    for (const auto* kept :
         {"<!-- ours -->", "theme=\"dark\"", "<tool />", "<!-- the project -->", "color=\"red\"",
          "since=\"2020\"", "<note>text</note>", "<folder name=\"x\" />", "value=\"Stock\""}) {
        EXPECT_NE(text.find(kept), std::string::npos) << kept << " in " << text;
    }
}

}  // namespace
}  // namespace tessel::workbench

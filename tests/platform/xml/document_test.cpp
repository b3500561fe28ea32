#include "platform/xml/document.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"
#include "tessel/error.h"

namespace tessel::xml {
namespace {

std::string FaultOf(std::string_view text) {
    try {
        (void)Document::Parse(text, "test.xml");
        return "none";
    } catch (const Error& error) {
        return error.Kind() == ErrorKind::Xml ? error.what() : "of another kind";
    }
}

TEST(Document, DamagedTextIsRefusedWithItsLine) {
    const std::pair<std::string_view, std::string> cases[] = {
        {"", "test.xml, line 1:"},
        {"<a>\n<b>\n</a>", "test.xml, line 3:"},
        {"<a>\n<b x='1'", "test.xml, line 2:"},
        {"<a>\n</a>tail", "test.xml, line 2:"},
        {"<a x='\xE9'/>", "test.xml, line 1:"},
        {"<a>\n<b x='&#1;'/></a>", "test.xml, line 2:"},
        {"<a>\n\n&#x1f;</a>", "test.xml, line 1:"},
        {std::string_view("<a>\n<b x='\0'/></a>", 18), "test.xml, line 2:"},
        {"<a>\n<b x='lost&#x0;'/></a>", "test.xml, line 2:"},
        {"<a>lost&#000;</a>", "test.xml, line 1:"},
        {"<a>&#4294967361;</a>", "test.xml, line 1:"},
        {"<a>\n<b x='&#x110000;'/></a>", "test.xml, line 2:"},
        {"<a><![CDATA[&#0;]]>&#;&#x;&#x41</a>", "none"},
    };
    for (const auto& [text, fault] : cases)
        EXPECT_TRUE(FaultOf(text).starts_with(fault)) << text << FaultOf(text);
    EXPECT_EQ(FaultOf("<?xml version='1.0' encoding='ISO-8859-1'?><a x='\xE9'/>"), "none");
}

TEST(Document, KeepsWhatItDoesNotKnow) {
    const std::string text =
        "<?xml version=\"1.0\"?>\n<!DOCTYPE a SYSTEM \"file:///etc/hostname\">\n<!-- head -->\n<a>\n  <?do "
        "it?>\n"
        "  <b x=\"1\" y:z=\"&lt;&#10;&quot;あ\"> </b>\n  <c><![CDATA[<>]]></c>\n  <!-- in -->\n  "
        "<d>text</d>\n</a>\n"
        "<!-- tail -->\n";
    EXPECT_EQ(Document::Parse(text, "").Text(), text);
}

TEST(Document, EntitiesAreNotExpanded) {
    const auto document =
        Document::Parse("<!DOCTYPE a [<!ENTITY e SYSTEM \"file:///etc/hostname\">]><a x=\"&e;\"/>", "");
    EXPECT_EQ(document.Root().Attribute("x"), "&e;");
}

std::string Nested(int depth) {
    std::string text;
    for (int i = 0; i < depth; ++i) text += "<a>t";
    for (int i = 0; i < depth; ++i) text += "</a>";
    return text;
}

TEST(Document, WhatIsNestedTooDeeplyToBeWalkedIsRefused) {
    EXPECT_EQ(FaultOf(Nested(200)), "none");
    for (const int depth : {201, 1'000'000})
        EXPECT_TRUE(FaultOf(Nested(depth)).starts_with("test.xml, line 1:")) << depth;
}

TEST(Document, IsChangedAndSaved) {
    const TemporaryFolder folder;
    Document made;
    auto root = made.AppendRoot("r");
    EXPECT_THROW(made.AppendRoot("s"), Error);
    const std::string value = " a\t\n\r\"'<&>あ";
    root.AppendChild("first").SetAttribute("v", "old");
    root.AppendChild("second").SetAttribute("v", "");
    const auto moved = std::move(made);
    root.Children().at(0).SetAttribute("v", value);
    moved.Save((folder / "file.xml"));

    const auto loaded = Document::Load((folder / "file.xml"));
    const auto children = loaded.Root().Children();
    ASSERT_EQ(children.size(), 2U);
    EXPECT_EQ(children[0].Attribute("v"), value);
    Element(children[0]).Remove();
    ASSERT_EQ(loaded.Root().Children().size(), 1U);
    EXPECT_EQ(loaded.Root().Children()[0].Name(), "second");
    for (const auto refused :
         {std::string_view("a\0b", 3), std::string_view("\x01"), std::string_view("\xFF")})
        EXPECT_THROW(root.SetAttribute("v", refused), Error);
    EXPECT_THROW(Element().Remove(), Error);
}

TEST(Document, XPathSelectsTheFirstElement) {
    const auto document = Document::Parse(
        "<o><CASE ID='A'><LIST NAME='x' VALUE='1'/></CASE><CASE ID='B'>t<LIST NAME='x' "
        "VALUE='2'/></CASE></o>",
        "");
    const auto value = [](const Element& element) { return element.Attribute("VALUE").value_or("none"); };
    for (const int pass : {1, 2}) {
        SCOPED_TRACE(pass);
        EXPECT_EQ(value(document.SelectSingleNode(".//LIST[@NAME='x']")), "1");
        EXPECT_EQ(value(document.SelectSingleNode("//CASE[@ID='B']/LIST[@NAME='x']")), "2");
        EXPECT_EQ(value(document.SelectSingleNode("//CASE[@ID='B']/node()")), "2");  // past the text
        const auto second = document.SelectSingleNode("//CASE[@ID='B']");
        EXPECT_EQ(value(second.SelectSingleNode(".//LIST")), "2");
        EXPECT_EQ(value(second.SelectSingleNode("//LIST")), "1");
        EXPECT_EQ(document.SelectSingleNode("//LIST[@VALUE='2']/ancestor::*").Name(), "o");
        EXPECT_FALSE(Element().SelectSingleNode("//LIST"));
        for (const auto* wrong : {"//LIST[", "1 + 1", ""})
            EXPECT_THROW((void)document.SelectSingleNode(wrong), Error) << wrong;
    }
}

}  // namespace
}  // namespace tessel::xml

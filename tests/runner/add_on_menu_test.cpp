#include "runner/add_on_menu.h"

#include <gtest/gtest.h>

namespace tessel::test {

namespace {

std::string Entry(const std::string& caption, const std::string& more = {}, const std::string& inside = {}) {
    return "<GROUP CAPTION='" + caption + "' NAME='n" + caption + "' " + more +
           "><TEXT NAME='ProgID' VALUE='p" + caption + "'/>" + inside + "</GROUP>";
}

std::string List(const std::string& entries) { return "<LIST NAME='AddOns'>" + entries + "</LIST>"; }

std::string Nested(const std::string& caption, const std::string& entries, const std::string& more = {}) {
    return "<GROUP CAPTION='" + caption + "' " + more + "><LIST>" + entries + "</LIST><LIST>" + Entry("X") +
           "</LIST></GROUP>";
}

AddOnMenu Menu(const std::string& lists) {
    static const text::Texts texts(std::string(TESSEL_SHARE) + "/texts", "en");
    return ReadAddOnMenu(
        xml::Document::Parse("<OPTIONS><GROUP><CASE ID='Vantrel'>" + lists + "</CASE></GROUP></OPTIONS>",
                             "options"),
        texts);
}

// "1 First, 2 Second, -"
std::string Shown(const AddOnMenu& menu) {
    std::string shown;
    for (const auto& item : menu.items) {
        if (!shown.empty()) shown += ", ";
        shown += item.entry == 0 ? item.caption : std::to_string(item.entry) + " " + item.caption;
    }
    return shown;
}

TEST(AddOnMenu, IsBuiltFromTheOptions) {
    const std::pair<std::string, const char*> cases[] = {
        {"", ""},
        {List(""), ""},
        {"<CASE NAME='AddOns'>" + Entry("A") + "</CASE>", ""},
        {List(Entry("A", "VISIBLE='False'") + Nested("N", Entry("B"), "VISIBLE='0'")), ""},
        {List(Entry("A", "VISIBLE='True'") + Entry("B") + Entry("C", "VISIBLE='-1'")), "1 A, 2 B, 3 C"},
        {List(Entry("A")) + List(Entry("B")), "1 A"},
        {List(Nested("N", Entry("A") + Entry("B"))), "1 N A, 2 N B"},
        {List(Entry("A") + Nested("N", Entry("B")) + Nested("M", Entry("C")) + Entry("D")),
         "1 A, -, 2 N B, -, 3 M C, -, 4 D"},
        {List(Entry("A") + Nested("N", Entry("B", "VISIBLE='no'")) + Entry("C")), "1 A, -, 2 C"},
        {List(Nested("N", Nested("M", Entry("A")) + Entry("B"))), "1 N M A, -, 2 N B"},
        {List(Entry("A") + "<GROUP CAPTION='N'/><GROUP CAPTION='M'>" + Entry("B") + "</GROUP>"), "1 A"},
        {List(Entry("@560") + Nested("@561", Entry("@x"))), "1 Browser, -, 2 Diagram @x"},
        {List(Entry("-") + Entry("-")), "1 -, 2 -"},
    };
    for (const auto& [lists, items] : cases) EXPECT_EQ(Shown(Menu(lists)), items) << lists;
}

TEST(AddOnMenu, KeepsWhatItsEntriesRun) {
    const auto menu = Menu(List(
        Nested("N", Entry("A", "", "<TEXT NAME='Param' VALUE='x=1'/><BOOL NAME='Verify' VALUE='True'/>")) +
        Entry("B", "", "<BOOL NAME='Verify' VALUE='False'/>")));
    ASSERT_EQ(menu.entries.size(), 2U);
    const AddOnEntry& first = menu.entries[0];
    EXPECT_EQ(first.caption + "|" + first.name + "|" + first.progID + "|" + first.param, "N A|nA|pA|x=1");
    EXPECT_TRUE(first.verify);
    EXPECT_EQ(menu.entries[1].param, "");
    EXPECT_FALSE(menu.entries[1].verify);
}

}  // namespace

}  // namespace tessel::test

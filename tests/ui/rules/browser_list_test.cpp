#include "ui/rules/browser_list.h"

#include <gtest/gtest.h>

namespace tessel {

using Kind = RowsChange::Kind;

namespace test {

TEST(BrowserListRules, ADrawnTableGoesToItsPlaceAndTheWatcherIsTold) {
    struct {
        const char* name;
        std::int32_t tabID;
        std::vector<std::string> names;
        std::vector<RowsChange> changes;
    } const cases[] = {
        {"banana", 4, {"apple", "banana", "Berry", "cherry"}, {{Kind::Insert, 1}}},
        {"Zebra", 4, {"apple", "Berry", "cherry", "Zebra"}, {{Kind::Insert, 3}}},
        {"zebra", 1, {"Berry", "cherry", "zebra"}, {{Kind::Move, 0, 3}, {Kind::Renew, 2}}},
        {"bonbon", 1, {"Berry", "bonbon", "cherry"}, {{Kind::Move, 0, 2}, {Kind::Renew, 1}}},
        {"AAA", 3, {"AAA", "apple", "Berry"}, {{Kind::Move, 2, 0}, {Kind::Renew, 0}}},
        {"BERRY", 2, {"apple", "BERRY", "cherry"}, {{Kind::Renew, 1}}},
        {"carrot", 2, {"apple", "carrot", "cherry"}, {{Kind::Renew, 1}}},
    };
    for (const auto& [name, tabID, names, changes] : cases) {
        BrowserList list;
        list.Draw("cherry", 3, "", "");
        list.Draw("apple", 1, "", "");
        list.Draw("Berry", 2, "", "");
        std::vector<RowsChange> told;
        list.Watch([&told](const RowsChange& change, const auto& apply) {
            told.push_back(change);
            apply();
        });
        list.Draw(name, tabID, "", "");
        std::vector<std::string> listed;
        for (const auto& row : list.Rows()) listed.push_back(row.text);
        EXPECT_EQ(listed, names) << name;
        EXPECT_EQ(told, changes) << name;
    }
}

TEST(BrowserListRules, MissingLeavesTagAndDescriptionAndNullEmptiesThem) {
    BrowserList list;
    list.Draw("A", 7, "text:o", "old\ncomment");
    list.Draw("B", 7, Missing{}, Missing{});
    EXPECT_EQ(list.Rows(), (std::vector<BrowserRow>{{"t7", "B", "old comment", "text:o"}}));
    list.Draw("B", 7, Null{}, Null{});
    EXPECT_EQ(list.Rows(), (std::vector<BrowserRow>{{"t7", "B", "", ""}}));
}

}  // namespace test
}  // namespace tessel

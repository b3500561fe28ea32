#include "lines/keyed_items.h"

#include <gtest/gtest.h>

namespace tessel::test {

// Around the number of items from which on an index finds them.
TEST(KeyedItems, AreFoundAndKeepTheirOrder) {
    for (const int count : {1, 16, 17, 18, 500}) {
        SCOPED_TRACE(count);
        Json items = Json::object();
        for (int i = 0; i < count; ++i) items[std::to_string(count - i)] = i;
        items[std::to_string(count)] = "again";
        EXPECT_EQ(items.size(), static_cast<std::size_t>(count));
        EXPECT_EQ(items.begin().key(), std::to_string(count));
        EXPECT_EQ(items.begin().value(), "again");
        EXPECT_EQ(Json::parse(items.dump()), items);

        Json fewer = items;
        EXPECT_EQ(fewer.erase("1"), 1U);
        EXPECT_FALSE(fewer.contains("1"));
        fewer["new"] = "last";
        EXPECT_EQ(fewer.at("new"), "last");
        for (int i = 2; i < count; ++i) EXPECT_EQ(fewer[std::to_string(i)], count - i);

        fewer.clear();
        for (int i = 0; i < 40; ++i) fewer["k" + std::to_string(i)] = i;
        EXPECT_FALSE(fewer.contains("new"));
        EXPECT_EQ(fewer["k39"], 39);
    }
}

}  // namespace tessel::test

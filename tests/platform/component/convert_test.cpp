#include "platform/component/convert.h"

#include <gtest/gtest.h>

#include "tessel/error.h"
#include "tessel/object.h"

namespace tessel::test {

namespace {

TEST(Convert, NumbersRoundToEvenAndStayInRange) {
    struct Case {
        Value value;
        std::optional<std::int32_t> expected;  // nothing: refused
    };
    const Case cases[] = {
        {2.5, 2},      {3.5, 4},           {-2.5, -2},       {" 12 ", 12},        {"+7", 7},
        {"1e3", 1000}, {"2.5", 2},         {true, -1},       {false, 0},          {2147483647.4, 2147483647},
        {3e9, {}},     {"12 monkeys", {}}, {"", {}},         {"0x10", {}},        {"nan", {}},
        {Null{}, {}},  {Missing{}, {}},    {DateTime{}, {}}, {"99999999999", {}},
    };
    for (const auto& c : cases) {
        if (c.expected)
            EXPECT_EQ(ToInt32(c.value), *c.expected);
        else
            EXPECT_THROW((void)ToInt32(c.value), Error);
    }
    EXPECT_EQ(ToInt16("-32768"), -32768);
    EXPECT_THROW((void)ToInt16(32768), Error);
    EXPECT_EQ(ToDouble("0.25"), 0.25);
}

TEST(Convert, BooleansAndTexts) {
    EXPECT_TRUE(ToBoolean("TRUE"));
    EXPECT_TRUE(ToBoolean(-1));
    EXPECT_TRUE(ToBoolean("0.5"));
    EXPECT_FALSE(ToBoolean("false"));
    EXPECT_FALSE(ToBoolean(0.0));
    for (const Value& refused : {Value("yes"), Value(""), Value(Null{})})
        EXPECT_THROW((void)ToBoolean(refused), Error);
    EXPECT_EQ(ToText(true), "True");
    EXPECT_EQ(ToText(0.1), "0.1");
    EXPECT_EQ(ToText(-7), "-7");
    EXPECT_EQ(ToText(DateTime{}), "1970-01-01T00:00:00");
    EXPECT_THROW((void)ToText(Missing{}), Error);
    EXPECT_THROW((void)ToText(std::make_shared<Collection>()), Error);
}

TEST(Collection, KeepsOrderAndFindsByKey) {
    Collection items;
    items.Add(1, "b");
    items.Add(2, "A");
    std::string keys;
    for (const auto& [key, value] : items) keys += key;
    EXPECT_EQ(keys, "bA");
    EXPECT_EQ(items.At("a"), Value(2));
    EXPECT_FALSE(items.HasKey("c"));
    EXPECT_THROW((void)items.At("c"), Error);
    EXPECT_THROW(items.Add(3, "B"), Error);
    EXPECT_EQ(items.Count(), 2U);
}

}  // namespace

}  // namespace tessel::test

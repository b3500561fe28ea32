#include "tessel/convert.h"

#include <gtest/gtest.h>

#include "tessel/date_time.h"
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
        {Null{}, {}},  {Missing{}, {}},    {DateTime{}, {}}, {"99999999999", {}}, {"+-7", {}},
    };
    for (const auto& c : cases) {
        if (c.expected)
            EXPECT_EQ(ToInt32(c.value), *c.expected);
        else
            EXPECT_THROW((void)ToInt32(c.value), Error);
    }
    EXPECT_EQ(ToInt16("-32768"), -32768);
    EXPECT_THROW((void)ToInt16(32768), Error);
}

TEST(Convert, BooleansAndTexts) {
    EXPECT_TRUE(ToBoolean("TRUE"));
    EXPECT_TRUE(ToBoolean("0.5"));
    EXPECT_FALSE(ToBoolean("false"));
    for (const Value& refused : {Value("yes"), Value(""), Value(Null{})})
        EXPECT_THROW((void)ToBoolean(refused), Error);
    EXPECT_EQ(ToText(true), "True");
    EXPECT_EQ(ToText(0.1), "0.1");
    EXPECT_EQ(ToText(DateTime{}), "1970-01-01T00:00:00");
    EXPECT_THROW((void)ToText(Missing{}), Error);
    EXPECT_THROW((void)ToText(std::make_shared<Collection>()), Error);
}

TEST(Collection, FindsEachOfFewAndOfManyItemsAndKeepsTheirOrder) {
    Collection items;
    std::vector<std::string> keys;
    for (int i = 0; i < 40; ++i) {
        keys.push_back("Key" + std::to_string(39 - i));
        EXPECT_THROW((void)items.At(keys.back()), Error) << i;
        items.Add(i, keys.back());
        for (int known = 0; known <= i; ++known) {
            const std::string number = std::to_string(39 - known);
            EXPECT_EQ(items.At("kEY" + number), Value(known)) << i;
            EXPECT_THROW(items.Add(0, "KEY" + number), Error) << i;
        }
    }
    std::vector<std::string> found;
    for (const auto& [key, value] : items) found.push_back(key);
    EXPECT_EQ(found, keys);
}

TEST(DateTime, ReadsWhatItWrites) {
    for (const char* date : {"1970-01-01T00:00:00", "2026-01-31T10:00:00", "2024-02-29T23:59:59",
                             "0001-01-01T00:00:00", "9999-12-31T23:59:59", "1899-12-30T00:00:01"}) {
        const auto parsed = ParseIso(date);
        ASSERT_TRUE(parsed) << date;
        EXPECT_EQ(FormatIso(*parsed), date);
    }
    EXPECT_EQ(ParseIso("2026-01-31"), ParseIso("2026-01-31T00:00:00"));
    EXPECT_EQ(ParseIso("2026-01-31 10:00:00"), ParseIso("2026-01-31T10:00:00"));
    EXPECT_LT(*ParseIso("1969-12-31T23:59:59"), DateTime{});
}

TEST(DateTime, RefusesWhatIsNoDate) {
    for (const char* text :
         {"", "2026", "2026-1-31", "2026-02-30", "2025-02-29", "2026-13-01", "0000-01-01", "2026-01-31T",
          "2026-01-31T10", "2026-01-31T10:00", "2026-01-31T24:00:00", "2026-01-31T10:60:00",
          "2026-01-31T10:00:00Z", "2026-01-31T10:00:00.5", "+026-01-31", "2026-01--1", "20260131",
          "2026-01-31x10:00:00", "2026-01-31T-0:-0:-0"})
        EXPECT_FALSE(ParseIso(text)) << text;
    EXPECT_FALSE(ParseIso({"2026-01-31T10:00:00\0", 20}));
}

}  // namespace

}  // namespace tessel::test

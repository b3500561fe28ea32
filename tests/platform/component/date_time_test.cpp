#include "tessel/date_time.h"

#include <gtest/gtest.h>

namespace tessel::test {

namespace {

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
    for (const char* text : {"", "2026", "2026-1-31", "2026-02-30", "2025-02-29", "2026-13-01", "0000-01-01",
                             "2026-01-31T", "2026-01-31T10", "2026-01-31T10:00", "2026-01-31T24:00:00",
                             "2026-01-31T10:60:00", "2026-01-31T10:00:00Z", "2026-01-31T10:00:00.5",
                             "+026-01-31", "2026-01--1", "20260131", "2026-01-31x10:00:00"})
        EXPECT_FALSE(ParseIso(text)) << text;
}

TEST(DateTime, NowIsOnTheUsersClock) {
    const std::string now = FormatIso(Now());
    EXPECT_GT(now, "2020");
    EXPECT_EQ(FormatIso(*ParseIso(now)), now);
}

}  // namespace

}  // namespace tessel::test

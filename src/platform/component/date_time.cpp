#include "tessel/date_time.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <ctime>

namespace tessel {

namespace {

using std::chrono::days;
using std::chrono::seconds;
using std::chrono::sys_days;

// The number that fills `width` digits at the front of `text`, which is shortened by it and by the character
// after it; that character must be one of `separators` ('\0' stands for the end of the text).
std::optional<int> Take(std::string_view& text, std::size_t width, std::string_view separators) {
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (text.size() < width || !std::ranges::all_of(text.substr(0, width), isDigit)) return {};
    int number = 0;
    std::from_chars(text.data(), text.data() + width, number);
    text.remove_prefix(width);
    if (text.starts_with('\0')) return {};
    const char separator = text.empty() ? '\0' : text.front();
    if (separators.find(separator) == std::string_view::npos) return {};
    if (!text.empty()) text.remove_prefix(1);
    return number;
}

std::optional<std::int64_t> ParseTime(std::string_view text) {
    const auto hour = Take(text, 2, ":");
    const auto minute = hour ? Take(text, 2, ":") : hour;
    const auto second = minute ? Take(text, 2, {"\0", 1}) : minute;
    if (!second || !text.empty() || *hour > 23 || *minute > 59 || *second > 59) return {};
    return (*hour * 60 + *minute) * 60 + *second;
}

}  // namespace

std::string FormatIso(DateTime date) {
    const std::chrono::sys_seconds moment{seconds(date.seconds)};
    const auto day = std::chrono::floor<days>(moment);
    const std::chrono::year_month_day calendar(day);
    const std::chrono::hh_mm_ss clock(moment - day);
    return fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}", static_cast<int>(calendar.year()),
                       static_cast<unsigned>(calendar.month()), static_cast<unsigned>(calendar.day()),
                       clock.hours().count(), clock.minutes().count(), clock.seconds().count());
}

std::optional<DateTime> ParseIso(std::string_view text) {
    const auto year = Take(text, 4, "-");
    const auto month = year ? Take(text, 2, "-") : year;
    const bool hasTime = text.size() > 2;
    const auto day = month ? Take(text, 2, {"T \0", 3}) : month;
    if (!day || *year == 0) return {};
    const std::chrono::year_month_day calendar{std::chrono::year(*year), std::chrono::month(unsigned(*month)),
                                               std::chrono::day(unsigned(*day))};
    const auto time = hasTime ? ParseTime(text) : std::optional<std::int64_t>(0);
    if (!calendar.ok() || !time) return {};
    return DateTime{std::chrono::duration_cast<seconds>(sys_days(calendar).time_since_epoch()).count() +
                    *time};
}

DateTime Now() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return DateTime{static_cast<std::int64_t>(now) + local.tm_gmtoff};
}

}  // namespace tessel

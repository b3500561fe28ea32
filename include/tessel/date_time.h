#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tessel {

// A civil date and time to the second, without a time zone.
struct DateTime {
    std::int64_t seconds = 0;  // since 1970-01-01T00:00:00

    auto operator<=>(const DateTime&) const = default;
};

// "2026-01-31T10:00:00". Years run from 0001 to 9999.
[[nodiscard]] std::string FormatIso(DateTime date);

// Reads "2026-01-31T10:00:00", a blank in place of the T, or the date alone; nothing when the text is no such
// date.
[[nodiscard]] std::optional<DateTime> ParseIso(std::string_view text);

// The present moment on the user's clock.
[[nodiscard]] DateTime Now();

}  // namespace tessel

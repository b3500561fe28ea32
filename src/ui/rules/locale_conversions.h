#pragma once

#include <optional>
#include <string>

namespace tessel {

// What texts mean to a user of this locale. Blanks around them are passed over; the empty text is neither a
// number nor a date.
class LocaleConversions {
  public:
    virtual ~LocaleConversions() = default;

    // The number that the whole text is, with the locale's decimal sign and group separators; nothing when it
    // is none or is too large for a double.
    [[nodiscard]] virtual std::optional<double> ToNumber(const std::string& text) const = 0;

    // Whether the whole text is a date, a time, or both.
    [[nodiscard]] virtual bool IsDate(const std::string& text) const = 0;
};

}  // namespace tessel

#pragma once

#include <string>

#include "ui/rules/locale_conversions.h"

namespace tessel {

// Whether a text can be the default value of a column of the type: for a type of numbers, a number that its
// range holds, whole ones rounded to the even neighbour first; for one of dates, a date or a time; for any
// other, any text.
[[nodiscard]] bool IsDefaultOf(const std::string& typeName, const std::string& text,
                               const LocaleConversions& locale);

}  // namespace tessel

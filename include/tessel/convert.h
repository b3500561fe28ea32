#pragma once

#include <cstdint>
#include <string>

#include "tessel/value.h"

// Every conversion between kinds of values. What does not convert throws ErrorKind::Conversion, Null and
// Missing included; objects and collections never convert.
namespace tessel {

// Numbers in their shortest decimal form, Booleans as "True" and "False", dates as FormatIso writes them.
[[nodiscard]] std::string ToText(const Value& value);

// Text must hold a number (blanks around it are passed over), in decimal with a point. A fraction is rounded,
// a half to the even neighbour; a result outside the range throws. True is -1, False 0.
[[nodiscard]] std::int16_t ToInt16(const Value& value);
[[nodiscard]] std::int32_t ToInt32(const Value& value);
[[nodiscard]] double ToDouble(const Value& value);

// "True" and "False" in any letter case, or a number: anything but 0 is true.
[[nodiscard]] bool ToBoolean(const Value& value);

// Text as ParseIso reads it.
[[nodiscard]] DateTime ToDate(const Value& value);

}  // namespace tessel

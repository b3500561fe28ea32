#include "tessel/convert.h"

#include <fmt/format.h>

#include <charconv>
#include <cmath>
#include <limits>
#include <type_traits>

#include "platform/text/utf8.h"
#include "tessel/error.h"

namespace tessel {

namespace {

std::string Describe(const Value& value) {
    if (value.IsNull()) return "Null";
    if (value.IsMissing()) return "An argument that was not passed";
    if (value.As<std::shared_ptr<Object>>()) return "An object";
    if (value.As<std::shared_ptr<Collection>>()) return "A collection";
    return '"' + ToText(value) + '"';
}

[[noreturn]] void Refuse(const Value& value, std::string_view wanted) {
    throw Error(ErrorKind::Conversion, fmt::format("{} is not {}.", Describe(value), wanted));
}

std::optional<double> NumberIn(std::string_view text) {
    text = text::Trim(text);
    if (text.starts_with("+-")) return {};
    if (text.starts_with('+')) text.remove_prefix(1);
    double number = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (failure != std::errc() || end != text.data() + text.size() || !std::isfinite(number)) return {};
    return number;
}

std::optional<double> Number(const Value& value) {
    return std::visit(
        [](const auto& content) -> std::optional<double> {
            using T = std::decay_t<decltype(content)>;
            if constexpr (std::is_same_v<T, bool>)
                return content ? -1.0 : 0.0;
            else if constexpr (std::is_arithmetic_v<T>)
                return static_cast<double>(content);
            else if constexpr (std::is_same_v<T, std::string>)
                return NumberIn(content);
            else
                return std::nullopt;
        },
        value.Contents());
}

template <typename Integer>
Integer ToInteger(const Value& value, std::string_view wanted) {
    const auto number = Number(value);
    if (!number) Refuse(value, wanted);
    const double rounded = std::nearbyint(*number);  // a half goes to the even neighbour
    if (rounded < std::numeric_limits<Integer>::min() || rounded > std::numeric_limits<Integer>::max())
        Refuse(value, wanted);
    return static_cast<Integer>(rounded);
}

}  // namespace

std::string ToText(const Value& value) {
    return std::visit(
        [&value](const auto& content) -> std::string {
            using T = std::decay_t<decltype(content)>;
            if constexpr (std::is_same_v<T, std::string>)
                return content;
            else if constexpr (std::is_same_v<T, bool>)
                return content ? "True" : "False";
            else if constexpr (std::is_arithmetic_v<T>)
                return fmt::format("{}", content);
            else if constexpr (std::is_same_v<T, DateTime>)
                return FormatIso(content);
            else
                Refuse(value, "a text");
        },
        value.Contents());
}

std::int16_t ToInt16(const Value& value) {
    return ToInteger<std::int16_t>(value, "a whole number from -32768 to 32767");
}

std::int32_t ToInt32(const Value& value) {
    if (const auto* number = value.As<std::int32_t>()) return *number;
    return ToInteger<std::int32_t>(value, "a whole number of 32 bits");
}

double ToDouble(const Value& value) {
    if (const auto number = Number(value)) return *number;
    Refuse(value, "a number");
}

bool ToBoolean(const Value& value) {
    if (const auto* truth = value.As<bool>()) return *truth;
    if (const auto* text = value.As<std::string>()) {
        if (text::SameText(*text, "True")) return true;
        if (text::SameText(*text, "False")) return false;
    }
    if (const auto number = Number(value)) return *number != 0;
    Refuse(value, "True or False");
}

DateTime ToDate(const Value& value) {
    if (const auto* date = value.As<DateTime>()) return *date;
    if (const auto* text = value.As<std::string>())
        if (const auto date = ParseIso(*text)) return *date;
    Refuse(value, "a date such as 2026-01-31T10:00:00");
}

}  // namespace tessel

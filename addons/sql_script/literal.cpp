#include "sql_script/literal.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "sql_script/text_tools.h"
#include "sql_script/type_kind.h"
#include "tessel/convert.h"

namespace tessel::sql_script {

namespace {

using Literal = std::optional<std::string>;

// The text between quotes of either kind; the text itself when it is not in quotes.
std::string Unquoted(const std::string& typed) {
    const std::string text(Trim(typed));
    const char quote = text.empty() ? '\0' : text.front();
    if ((quote != '\'' && quote != '"') || text.size() < 2 || text.back() != quote) return typed;
    std::string inner;
    for (std::size_t i = 1; i + 1 < text.size(); ++i) {
        if (text[i] == quote && (text[++i] != quote || i + 1 == text.size())) return typed;
        inner += text[i];
    }
    return inner;
}

std::size_t CountDigits(std::string_view text, std::size_t& at) {
    const auto start = at;
    while (at < text.size() && text[at] >= '0' && text[at] <= '9') ++at;
    return at - start;
}

// Such as "-12.50" or "1e6".
bool IsNumber(std::string_view text) {
    std::size_t at = !text.empty() && (text[0] == '-' || text[0] == '+') ? 1 : 0;
    std::size_t digits = CountDigits(text, at);
    if (at < text.size() && text[at] == '.') digits += CountDigits(text, ++at);
    if (digits == 0) return false;
    if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
        if (++at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
        if (CountDigits(text, at) == 0) return false;
    }
    return at == text.size();
}

std::optional<double> NumberIn(const std::string& text) {
    if (!IsNumber(text)) return {};
    try {
        return ToDouble(Value(text));
    } catch (const std::exception&) {
        return {};  // too large for any number
    }
}

bool IsTypedWhole(const std::string& text) { return text.find_first_of(".eE") == std::string::npos; }

// A fraction is rounded to the even neighbour, as the editor takes it.
std::optional<std::int64_t> WholeNumberIn(const std::string& text) {
    const auto number = NumberIn(text);
    if (!number) return {};
    if (!IsTypedWhole(text)) {
        const double rounded = std::nearbyint(*number);
        if (rounded < -0x1p63 || rounded >= 0x1p63) return {};
        return static_cast<std::int64_t>(rounded);
    }
    // A double does not hold every BIGINT.
    std::int64_t whole = 0;
    const char* const begin = text.data() + (text.front() == '+' ? 1 : 0);
    const auto read = std::from_chars(begin, text.data() + text.size(), whole);
    return read.ec == std::errc() ? std::optional(whole) : std::nullopt;
}

Literal WholeLiteral(const Dialect& dialect, const std::string& typeName, const std::string& text) {
    const auto number = WholeNumberIn(text);
    if (!number) return {};
    const std::int64_t most[] = {dialect.tinyintLimit, 32767, 2147483647, INT64_MAX};
    static constexpr std::string_view names[] = {"TINYINT", "SMALLINT", "INTEGER", "BIGINT"};
    for (std::size_t i = 0; i < std::size(names); ++i)
        if (UpperAscii(typeName) == names[i] && *number <= most[i] && *number >= -most[i] - 1)
            return IsTypedWhole(text) ? text : std::to_string(*number);
    return {};
}

// The digits of a number from the first one that is no zero on, and how many of them stand before the point
// (less than none for zeros behind it).
std::pair<std::string, int> DigitsOf(const std::string& number) {
    const auto mark = std::min(number.find_first_of("eE"), number.size());
    int before = 0;
    if (mark < number.size()) before = static_cast<int>(std::strtol(number.c_str() + mark + 1, nullptr, 10));
    std::string digits;
    bool isBehind = false;
    for (const char c : number.substr(0, mark)) {
        isBehind = isBehind || c == '.';
        if (c < '0' || c > '9') continue;
        before += isBehind ? 0 : 1;
        if (c != '0' || !digits.empty())
            digits += c;
        else
            --before;
    }
    return {digits, before};
}

// Whether a column of the type holds the number when it is rounded to the scale.
bool Holds(const Column& column, const std::string& number) {
    const auto [digits, before] = DigitsOf(number);
    if (digits.empty() || before != column.precision - column.scale)
        return digits.empty() || before < column.precision - column.scale;
    const auto held = static_cast<std::size_t>(column.precision);
    const bool isRoundedUp = digits.size() > held && digits[held] >= '5';
    return !isRoundedUp || digits.find_first_not_of('9') < held;
}

Literal ExactLiteral(const Column& column, const std::string& text) {
    const bool isHeld = NumberIn(text) && (column.precision == 0 || Holds(column, text));
    return isHeld ? Literal(text) : Literal();
}

Literal FloatLiteral(const std::string& text) { return NumberIn(text) ? Literal(text) : Literal(); }

Literal BooleanLiteral(const std::string& text) {
    try {
        return ToBoolean(Value(text)) ? "TRUE" : "FALSE";
    } catch (const std::exception&) {
        return {};
    }
}

// The moment at which a row is made, for the kind of column; nothing when the text asks for something else.
Literal NowLiteral(const Dialect& dialect, TypeKind kind, const std::string& text) {
    static constexpr std::string_view words[] = {"current_date",   "current_time", "current_timestamp",
                                                 "localtimestamp", "localtime",    "now"};
    std::string word = LowerAscii(text);
    if (word.ends_with("()")) word.resize(word.size() - 2);
    for (const auto known : words) {
        if (word != known) continue;
        if (kind == TypeKind::Timestamp) return "CURRENT_TIMESTAMP";
        const std::string now = kind == TypeKind::Date ? "CURRENT_DATE" : "CURRENT_TIME";
        return IsServer(dialect, Server::MySql) ? "(" + now + ")" : now;
    }
    return {};
}

Literal MomentLiteral(const Dialect& dialect, TypeKind kind, const std::string& text) {
    if (auto now = NowLiteral(dialect, kind, text)) return now;
    auto moment = ParseIso(text);
    if (!moment && kind == TypeKind::Time) {
        const std::string seconds = text.size() == 5 ? ":00" : "";
        moment = ParseIso("2000-01-01T" + text + seconds);
    }
    if (!moment) return {};
    const std::string iso = FormatIso(*moment);
    if (kind == TypeKind::Date) return "'" + iso.substr(0, 10) + "'";
    if (kind == TypeKind::Time) return "'" + iso.substr(11) + "'";
    return "'" + iso.substr(0, 10) + " " + iso.substr(11) + "'";
}

// The digits of "0x1F", "\x1F" and "x'1F'"; nothing for another form.
std::optional<std::string> HexDigits(const std::string& text) {
    const std::string lower = LowerAscii(text);
    std::string digits;
    if (lower.starts_with("0x") || lower.starts_with("\\x"))
        digits = lower.substr(2);
    else if (lower.size() > 2 && lower.starts_with("x'") && lower.back() == '\'')
        digits = lower.substr(2, lower.size() - 3);
    const bool isHex = digits.find_first_not_of("0123456789abcdef") == std::string::npos;
    if (digits.empty() || digits.size() % 2 != 0 || !isHex) return {};
    return digits;
}

Literal BinaryLiteral(const Dialect& dialect, const Column& column, const std::string& typed) {
    const auto given = HexDigits(std::string(Trim(typed)));
    const std::string hex = given ? *given : HexOf(Unquoted(typed));
    if (column.precision != 0 && hex.size() / 2 > static_cast<std::size_t>(column.precision)) return {};
    return IsServer(dialect, Server::PostgreSql) ? "'\\x" + hex + "'" : "x'" + hex + "'";
}

Literal TextDefault(const Dialect& dialect, const Column& column, const std::string& typed) {
    const std::string text = Unquoted(typed);
    if (column.precision != 0 && CharacterCount(text) > static_cast<std::size_t>(column.precision)) return {};
    return TextLiteral(dialect, text);
}

Literal LiteralOf(const Dialect& dialect, const Column& column, TypeKind kind, const std::string& typed) {
    const std::string text(Trim(Unquoted(typed)));
    switch (kind) {
        case TypeKind::Whole:
            return WholeLiteral(dialect, column.typeName, text);
        case TypeKind::Exact:
            return ExactLiteral(column, text);
        case TypeKind::Float:
            return FloatLiteral(text);
        case TypeKind::Boolean:
            return BooleanLiteral(text);
        case TypeKind::Date:
        case TypeKind::Time:
        case TypeKind::Timestamp:
            return MomentLiteral(dialect, kind, text);
        case TypeKind::Binary:
            return BinaryLiteral(dialect, column, typed);
        case TypeKind::Text:
            break;
    }
    return TextDefault(dialect, column, typed);
}

}  // namespace

std::string TextLiteral(const Dialect& dialect, std::string text) {
    std::erase(text, '\0');
    if (dialect.escapesBackslash) text = ReplaceAll(std::move(text), "\\", "\\\\");
    return "'" + ReplaceAll(std::move(text), "'", "''") + "'";
}

std::optional<std::string> DefaultLiteral(const Dialect& dialect, const Column& column,
                                          const std::string& type) {
    if (!column.defaultValue) return "";
    const std::string& typed = *column.defaultValue;
    const TypeKind kind = KindOf(column.typeName);
    const bool takesEmpty = kind == TypeKind::Text || kind == TypeKind::Binary;
    if (UpperAscii(Trim(typed)) == "NULL" || (Trim(typed).empty() && !takesEmpty)) return "";
    auto literal = LiteralOf(dialect, column, kind, typed);
    if (literal && IsLargeType(dialect, type)) literal = "(" + *literal + ")";
    return literal;
}

}  // namespace tessel::sql_script

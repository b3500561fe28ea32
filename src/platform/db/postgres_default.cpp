#include "platform/db/postgres_default.h"

#include <algorithm>
#include <array>

namespace tessel::db {
namespace {

constexpr auto none = std::string_view::npos;
constexpr std::array<std::string_view, 3> constantWords{"NULL", "true", "false"};
constexpr std::array<std::string_view, 6> momentWords{"CURRENT_DATE",   "CURRENT_TIME", "CURRENT_TIMESTAMP",
                                                      "LOCALTIMESTAMP", "LOCALTIME",    "now()"};

// The longest of the words that the text begins with; empty for none.
template <typename Words>
std::string_view WordAtStart(std::string_view text, const Words& words) {
    std::string_view longest;
    for (const auto word : words)
        if (text.starts_with(word) && word.size() > longest.size()) longest = word;
    return longest;
}

// Behind the constant in quotes that begins at `start`.
std::size_t EndOfConstant(std::string_view text, std::size_t start, bool hasEscapes) {
    for (auto i = start + 1; i < text.size(); ++i) {
        if (hasEscapes && text[i] == '\\')
            ++i;
        else if (text[i] == '\'' && (i + 1 == text.size() || text[i + 1] != '\''))
            return i + 1;
        else if (text[i] == '\'')
            ++i;
    }
    return none;
}

// Behind the parenthesis that closes the first one.
std::size_t EndOfParentheses(std::string_view text) {
    int depth = 0;
    for (std::size_t i = 0; i < text.size();) {
        if (text[i] == '\'') {
            i = EndOfConstant(text, i, i > 0 && text[i - 1] == 'E');
            if (i == none) return none;
            continue;
        }
        if (text[i] == '(') ++depth;
        if (text[i] == ')' && --depth == 0) return i + 1;
        ++i;
    }
    return none;
}

bool IsNumberPart(char c) { return std::string_view("0123456789.eE+-").find(c) != std::string_view::npos; }

// Behind the constant or the parentheses that it begins with.
std::size_t EndOfOperand(std::string_view text) {
    if (text.starts_with('\'')) return EndOfConstant(text, 0, false);
    if (text.starts_with("E'")) return EndOfConstant(text, 1, true);
    if (text.starts_with('(')) return EndOfParentheses(text);
    if (const auto word = WordAtStart(text, constantWords); !word.empty()) return word.size();
    if (const auto word = WordAtStart(text, momentWords); !word.empty()) return word.size();
    return static_cast<std::size_t>(std::ranges::find_if_not(text, IsNumberPart) - text.begin());
}

// Whether nothing but a type follows; operators stand in parentheses, save IS.
bool IsCast(std::string_view rest) {
    const auto isTypePart = [](char c) {
        const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c & 0x80) != 0;
        return isLetter || std::string_view("0123456789_$. \"(),[]").find(c) != none;
    };
    return rest.starts_with("::") && std::ranges::all_of(rest.substr(2), isTypePart) &&
           rest.find(" IS ") == none;
}

// The constant alone; empty when the expression is more than one.
std::string_view WithoutCasts(std::string_view expression) {
    while (true) {
        const auto end = EndOfOperand(expression);
        if (end == none || end == 0) return {};
        const std::string_view rest = expression.substr(end);
        if (!rest.empty() && !IsCast(rest)) return {};
        if (expression.front() != '(') return expression.substr(0, end);
        expression = expression.substr(1, end - 2);
    }
}

std::string Unquoted(std::string_view constant) {
    const std::string_view doubled = constant.starts_with('E') ? "'\\" : "'";
    constant.remove_prefix(constant.starts_with('E') ? 2 : 1);
    constant.remove_suffix(1);
    std::string text;
    for (std::size_t i = 0; i < constant.size(); ++i) {
        if (doubled.find(constant[i]) != none) ++i;
        text += constant[i];
    }
    return text;
}

// A moment in a text would be taken for its word there.
bool IsText(std::string_view type) {
    return type.starts_with("text") || type.starts_with("character") || type.starts_with("bpchar");
}

}  // namespace

DefaultReading PostgresDefault(std::string_view expression, std::string_view type) {
    const std::string_view constant = WithoutCasts(expression);
    if (constant.empty()) return {{}, true};
    if (constant == "NULL") return {};
    if (!WordAtStart(constant, momentWords).empty() && IsText(type)) return {{}, true};
    if (constant.find('\'') == none) return {std::string(constant)};
    const std::string text = Unquoted(constant);
    const bool isBinary = text.starts_with("\\x") && expression.ends_with("'::bytea");
    return {isBinary ? BinaryDefault(std::string_view(text).substr(2)) : TextDefault(text)};
}

bool IsFromSequence(std::string_view expression) { return expression.find("nextval(") != none; }

}  // namespace tessel::db

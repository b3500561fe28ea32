#include "platform/db/postgres_default.h"

#include <algorithm>

#include "platform/text/utf8.h"

namespace tessel::db {
namespace {

constexpr auto none = std::string_view::npos;

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
    if (text.starts_with("NULL")) return 4;
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

}  // namespace

std::optional<std::string> PostgresDefault(std::string_view expression) {
    const std::string_view constant = WithoutCasts(expression);
    if (constant.empty()) return std::string(expression);
    if (constant == "NULL") return {};
    const bool isText = constant.find('\'') != none;
    return isText ? Unquoted(constant) : std::string(constant);
}

bool IsFromSequence(std::string_view expression) { return expression.find("nextval(") != none; }

}  // namespace tessel::db

#include <algorithm>
#include <array>

#include "clauses.h"
#include "line_text.h"

namespace tessel::layout {

namespace {

struct UsageWord {
    std::string_view word;
    Usage usage;
    int bytes = 0;
};

constexpr std::array<UsageWord, 33> words{{
    {"DISPLAY", Usage::Display},
    {"DISPLAY-1", Usage::National},
    {"NATIONAL", Usage::National},
    {"BINARY", Usage::Binary},
    {"COMP", Usage::Binary},
    {"COMPUTATIONAL", Usage::Binary},
    {"COMP-4", Usage::Binary},
    {"COMPUTATIONAL-4", Usage::Binary},
    {"COMP-5", Usage::Native},
    {"COMPUTATIONAL-5", Usage::Native},
    {"COMP-X", Usage::Native},
    {"COMPUTATIONAL-X", Usage::Native},
    {"BINARY-CHAR", Usage::Native, 1},
    {"BINARY-SHORT", Usage::Native, 2},
    {"BINARY-LONG", Usage::Native, 4},
    {"BINARY-INT", Usage::Native, 4},
    {"BINARY-DOUBLE", Usage::Native, 8},
    {"BINARY-LONG-LONG", Usage::Native, 8},
    {"PACKED-DECIMAL", Usage::Packed},
    {"COMP-3", Usage::Packed},
    {"COMPUTATIONAL-3", Usage::Packed},
    {"COMP-6", Usage::Packed},
    {"COMPUTATIONAL-6", Usage::Packed},
    {"COMP-1", Usage::Float},
    {"COMPUTATIONAL-1", Usage::Float},
    {"FLOAT-SHORT", Usage::Float},
    {"COMP-2", Usage::Double},
    {"COMPUTATIONAL-2", Usage::Double},
    {"FLOAT-LONG", Usage::Double},
    {"INDEX", Usage::Index},
    {"POINTER", Usage::Address},
    {"PROCEDURE-POINTER", Usage::Address},
    {"FUNCTION-POINTER", Usage::Address},
}};

}  // namespace

std::optional<UsageClause> FindUsage(const Token& token) {
    if (token.kind != Token::Kind::Word) return {};
    const std::string upper = Upper(token.text);
    const auto found = std::ranges::find(words, upper, &UsageWord::word);
    if (found == words.end()) return {};
    return UsageClause{.word = upper, .usage = found->usage, .bytes = found->bytes};
}

}  // namespace tessel::layout

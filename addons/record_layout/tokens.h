#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "source_lines.h"

namespace tessel::layout {

struct Token {
    enum class Kind {
        Word,        // whatever stands between blanks: names, numbers, pictures
        Literal,     // with its quotes and what stands before them, such as X"0D"
        PseudoText,  // what stands between ==, without them
        Period,
    };

    Kind kind = Kind::Word;
    std::string text;
    Place place;
    bool startsLine = false;
};
using Tokens = std::vector<Token>;

inline constexpr std::size_t longestWord = 255;  // bytes; longer ones are left out with a remark

[[nodiscard]] Tokens Tokenize(const SourceText& source, Remarks& remarks);
// The words of a pseudo-text, all at its own place.
[[nodiscard]] Tokens TokenizePseudoText(const Token& pseudoText, Remarks& remarks);

// Adds the word behind the others, as long as they are not too many to be shown.
void AppendWord(std::string& words, const Token& word);

[[nodiscard]] bool SameWord(std::string_view left, std::string_view right);  // ASCII case ignored
[[nodiscard]] bool Is(const Token& token, std::string_view word);
[[nodiscard]] bool SameToken(const Token& left, const Token& right);  // the case of words ignored

}  // namespace tessel::layout

#pragma once

#include <string>
#include <vector>

#include "tokens.h"

namespace tessel::layout {

// What COPY ... REPLACING asks for: these words by those.
struct Replacement {
    enum class Of {
        Words,     // whole words, one after another
        Leading,   // the beginning of a word
        Trailing,  // the end of a word
        Inside,    // a marked part of a word, such as :TAG:
    };

    Of of = Of::Words;
    Tokens from;  // one word at least; exactly one where a part of a word is meant
    Tokens to;    // at most one word where a part of a word is meant
};

// Works out `of` for a word that cannot stand alone: "CUST-" begins a word, "-OLD" ends one, ":TAG:" is a
// mark. False when there can be no such replacement.
[[nodiscard]] bool MakeReplacement(Replacement& replacement);

// Whole words are replaced once, by the first replacement that fits; parts of the others by each that fits.
// What is put in stands at the place of what it replaces. Ends early with more than `most` words; a part that
// would make a word longer than longestWord stays.
[[nodiscard]] Tokens Replaced(const Tokens& tokens, const std::vector<Replacement>& replacements,
                              std::size_t most);

}  // namespace tessel::layout

#include "replacing.h"

#include <algorithm>

#include "line_text.h"

namespace tessel::layout {

namespace {

using Of = Replacement::Of;

bool IsMark(char character) {
    return std::string_view(":(*&@#$%?!<[{").find(character) != std::string_view::npos;
}

bool IsOneWord(const Tokens& tokens) {
    return tokens.size() == 1 && tokens.front().kind == Token::Kind::Word;
}

Of PartMeantBy(std::string_view word) {
    if (IsMark(word.front())) return Of::Inside;
    if (word.back() == '-') return Of::Leading;
    return word.front() == '-' && word.size() > 1 && !IsDigit(word[1]) ? Of::Trailing : Of::Words;
}

bool FitsWords(const Tokens& tokens, std::size_t position, const Tokens& from) {
    return from.size() <= tokens.size() - position &&
           std::equal(from.begin(), from.end(), tokens.begin() + static_cast<std::ptrdiff_t>(position),
                      SameToken);
}

void Put(Tokens& result, const Tokens& words, const Token& first) {
    for (std::size_t i = 0; i < words.size(); ++i) {
        result.push_back(words[i]);
        result.back().place = first.place;
        result.back().startsLine = i == 0 && first.startsLine;
    }
}

std::string ReplacedInside(const std::string& word, const std::string& from, const std::string& to) {
    const std::string upper = Upper(word);
    const std::string mark = Upper(from);
    std::string result;
    std::size_t position = 0;
    for (std::size_t found; (found = upper.find(mark, position)) != std::string::npos;) {
        result.append(word, position, found - position) += to;
        position = found + mark.size();
    }
    return result.append(word, position);
}

std::string ReplacedPart(const std::string& word, const Replacement& replacement) {
    const std::string& from = replacement.from.front().text;
    const std::string to = replacement.to.empty() ? std::string() : replacement.to.front().text;
    if (replacement.of == Of::Inside) return ReplacedInside(word, from, to);
    if (from.size() > word.size()) return word;
    const std::size_t rest = word.size() - from.size();
    if (replacement.of == Of::Leading)
        return SameWord(word.substr(0, from.size()), from) ? to + word.substr(from.size()) : word;
    return SameWord(word.substr(rest), from) ? word.substr(0, rest) + to : word;
}

void ReplacePart(Token& word, const Replacement& replacement) {
    std::string text = ReplacedPart(word.text, replacement);
    if (text.size() <= longestWord) word.text = std::move(text);
}

}  // namespace

bool MakeReplacement(Replacement& replacement) {
    if (replacement.from.empty()) return false;
    const bool mayBePart =
        IsOneWord(replacement.from) && (replacement.to.empty() || IsOneWord(replacement.to));
    if (replacement.of == Of::Words && mayBePart) replacement.of = PartMeantBy(replacement.from.front().text);
    return mayBePart || replacement.of == Of::Words;
}

Tokens Replaced(const Tokens& tokens, const std::vector<Replacement>& replacements, std::size_t most) {
    Tokens result;
    for (std::size_t i = 0; i < tokens.size() && result.size() <= most;) {
        const auto whole = std::ranges::find_if(replacements, [&](const Replacement& replacement) {
            return replacement.of == Of::Words && FitsWords(tokens, i, replacement.from);
        });
        if (whole != replacements.end()) {
            Put(result, whole->to, tokens[i]);
            i += whole->from.size();
            continue;
        }
        Token token = tokens[i++];
        for (const auto& replacement : replacements)
            if (replacement.of != Of::Words && token.kind == Token::Kind::Word)
                ReplacePart(token, replacement);
        if (!token.text.empty()) result.push_back(std::move(token));
    }
    return result;
}

}  // namespace tessel::layout

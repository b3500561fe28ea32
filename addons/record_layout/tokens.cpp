#include "tokens.h"

#include <algorithm>
#include <array>
#include <optional>

#include "line_text.h"

namespace tessel::layout {

namespace {

bool IsBlank(char character) { return character == ' ' || character == '\n'; }
bool IsQuote(char character) { return character == '"' || character == '\''; }
bool IsComma(char character) { return character == ',' || character == ';'; }

bool IsLiteralPrefix(std::string_view word) {
    constexpr std::array<std::string_view, 9> prefixes{"X", "N", "NX", "G", "Z", "B", "BX", "H", "U"};
    return std::ranges::find(prefixes, Upper(word)) != prefixes.end();
}

class Scanner {
  public:
    Scanner(const SourceText& source, std::optional<Place> place, Remarks& remarks)
        : source_(source), text_(source.text), place_(place), remarks_(remarks) {}

    Tokens Scan() {
        while (position_ < text_.size()) {
            if (text_[position_] == '\n') startsLine_ = true;
            if (IsBlank(text_[position_]) || IsComma(text_[position_]))
                ++position_;
            else
                ScanToken();
        }
        return std::move(tokens_);
    }

  private:
    void ScanToken() {
        const std::string_view rest = std::string_view(text_).substr(position_);
        if (rest.starts_with("=="))
            ScanPseudoText();
        else if (IsQuote(rest.front()))
            ScanLiteral(position_);
        else
            ScanWord();
    }

    Place PlaceOf(std::size_t offset) const { return place_ ? *place_ : source_.At(offset); }

    void Add(Token::Kind kind, std::size_t start, std::string_view text) {
        tokens_.push_back({kind, std::string(text), PlaceOf(start), startsLine_});
        startsLine_ = false;
    }

    void ScanPseudoText() {
        const std::size_t start = position_;
        const std::size_t end = text_.find("==", start + 2);
        if (end == std::string::npos) remarks_.Add(PlaceOf(start), Text::OpenPseudoText);
        const std::size_t length = std::min(end, text_.size()) - start - 2;
        Add(Token::Kind::PseudoText, start, std::string_view(text_).substr(start + 2, length));
        position_ = std::min(end, text_.size() - 2) + 2;
    }

    // Ends at its quote, or with its line; a doubled quote stands for one.
    void ScanLiteral(std::size_t start) {
        const char quote = text_[position_++];
        for (; position_ < text_.size() && text_[position_] != '\n'; ++position_) {
            if (text_[position_] != quote) continue;
            if (position_ + 1 == text_.size() || text_[position_ + 1] != quote) break;
            ++position_;
        }
        const bool isClosed = position_ < text_.size() && text_[position_] == quote;
        if (isClosed) ++position_;
        const std::string literal = text_.substr(start, position_ - start);
        if (!isClosed) remarks_.Add(PlaceOf(start), Text::OpenLiteral, {Shortened(literal)});
        Add(Token::Kind::Literal, start, literal);
    }

    void ScanWord() {
        const std::size_t start = position_;
        const auto rest = [&] { return std::string_view(text_).substr(position_); };
        while (position_ < text_.size() && !IsBlank(text_[position_]) && !IsQuote(text_[position_]) &&
               !rest().starts_with("=="))
            ++position_;
        std::string_view word = std::string_view(text_).substr(start, position_ - start);
        if (position_ < text_.size() && IsQuote(text_[position_]) && IsLiteralPrefix(word))
            return ScanLiteral(start);
        while (!word.empty() && IsComma(word.back())) word.remove_suffix(1);
        const bool endsSentence = word.ends_with('.');
        if (endsSentence) word.remove_suffix(1);
        if (word.size() > longestWord)
            remarks_.Add(PlaceOf(start), Text::NoDescription, {Shortened(std::string(word))});
        else if (!word.empty())
            Add(Token::Kind::Word, start, word);
        if (endsSentence) Add(Token::Kind::Period, start, ".");
    }

    const SourceText& source_;
    const std::string& text_;
    const std::optional<Place> place_;  // of every token, where it is not its own
    Remarks& remarks_;
    Tokens tokens_;
    std::size_t position_ = 0;
    bool startsLine_ = true;
};

}  // namespace

Tokens Tokenize(const SourceText& source, Remarks& remarks) { return Scanner(source, {}, remarks).Scan(); }

Tokens TokenizePseudoText(const Token& pseudoText, Remarks& remarks) {
    const SourceText source{pseudoText.text, pseudoText.place.file, {}};
    return Scanner(source, pseudoText.place, remarks).Scan();
}

void AppendWord(std::string& words, const Token& word) {
    constexpr std::size_t longest = 1'000;
    if (words.size() > longest) return;
    if (!words.empty()) words += ' ';
    words += FirstCharacters(word.text, longest);
}

bool SameWord(std::string_view left, std::string_view right) {
    return std::ranges::equal(left, right, {}, UpperCase, UpperCase);
}

bool Is(const Token& token, std::string_view word) {
    return token.kind == Token::Kind::Word && SameWord(token.text, word);
}

bool SameToken(const Token& left, const Token& right) {
    if (left.kind != right.kind) return false;
    return left.kind == Token::Kind::Word ? SameWord(left.text, right.text) : left.text == right.text;
}

}  // namespace tessel::layout

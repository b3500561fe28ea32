#include "picture.h"

#include <vector>

#include "line_text.h"

namespace tessel::layout {

namespace {

// A symbol of the picture and how often it stands there; "C" stands for CR, "D" for DB.
struct Symbol {
    char symbol;
    std::int64_t count;
};
using Symbols = std::vector<Symbol>;

// The number in the brackets at the front; 0 when there is none, or it is too large.
std::int64_t TakeCount(std::string_view& text) {
    constexpr std::size_t mostDigits = 10;
    const std::size_t close = text.find(')');
    if (close == std::string_view::npos) return 0;
    const std::string_view digits = text.substr(1, close - 1);
    text.remove_prefix(close + 1);
    if (!IsNumber(digits) || digits.size() > mostDigits) return 0;
    const std::int64_t count = std::stoll(std::string(digits));
    return count <= longestPicture ? count : 0;
}

char TakeSymbol(std::string_view& text) {
    const bool isPair = text.starts_with("CR") || text.starts_with("DB");
    const char symbol = text.starts_with("\xC2\xA5") || text.starts_with("\xC2\xA3") ? '$' : text.front();
    text.remove_prefix(isPair || symbol != text.front() ? 2 : 1);
    return !isPair && (symbol == 'C' || symbol == 'D') ? '\0' : symbol;
}

std::optional<Symbols> Split(std::string_view text) {
    Symbols symbols;
    std::int64_t length = 0;
    while (!text.empty()) {
        Symbol next{TakeSymbol(text), 1};
        if (text.starts_with('(')) next.count = TakeCount(text);
        if (std::string_view("XANGU19SVPZ*+-$,./B0ECD").find(next.symbol) == std::string_view::npos)
            return {};
        if (next.count == 0) return {};
        length += next.count;
        symbols.push_back(next);
    }
    return length > 0 && length <= longestPicture ? std::optional(symbols) : std::nullopt;
}

std::int64_t Count(const Symbols& symbols, std::string_view which) {
    std::int64_t count = 0;
    for (const auto& [symbol, times] : symbols)
        if (which.find(symbol) != std::string_view::npos) count += times;
    return count;
}

Picture TextPicture(const Symbols& symbols) {
    const bool isNational = Count(symbols, "NG") > 0;
    const bool isEdited = Count(symbols, "B0/") > 0;
    return {.category = isNational ? Picture::Category::National
                        : isEdited ? Picture::Category::EditedText
                                   : Picture::Category::Text,
            .length = Count(symbols, "XANGU19B0/")};
}

// Counts the digits on both sides of the point.
class NumberReader {
  public:
    explicit NumberReader(const Symbols& symbols) : symbols_(symbols) {}

    std::optional<Picture> Read() {
        picture_.category =
            Count(symbols_, "Z*+-$,./B0CD") > 0 ? Picture::Category::EditedNumber : Picture::Category::Number;
        picture_.isSigned = Count(symbols_, "S+-CD") > 0;
        if (Count(symbols_, "V.") > 1 || Count(symbols_, "S") > 1) return {};
        for (const auto& symbol : symbols_) Read(symbol);
        return picture_.Digits() > 0 ? std::optional(picture_) : std::nullopt;
    }

  private:
    void Read(const Symbol& next) {
        const auto [symbol, count] = next;
        if (symbol == 'V' || symbol == '.') isAfterPoint_ = true;
        if (symbol == 'C' || symbol == 'D') picture_.length += count;  // two characters, one here, one below
        if (symbol != 'S' && symbol != 'V' && symbol != 'P') picture_.length += count;
        if (symbol == 'P') {
            ReadScaling(count);
        } else if (symbol == '9' || symbol == 'Z' || symbol == '*') {
            AddDigits(count);
        } else if (symbol == '+' || symbol == '-' || symbol == '$') {
            ReadFloating(symbol, count);
        }
    }

    void AddDigits(std::int64_t count) {
        (isAfterPoint_ ? picture_.decimalDigits : picture_.integerDigits) += count;
    }

    // P in front of the digits puts the point before itself.
    void ReadScaling(std::int64_t count) {
        if (picture_.Digits() == 0) isAfterPoint_ = true;
        AddDigits(count);
    }

    // The first one of a row that floats is no digit.
    void ReadFloating(char symbol, std::int64_t count) {
        AddDigits(floating_.find(symbol) == std::string::npos ? count - 1 : count);
        floating_ += symbol;
    }

    const Symbols& symbols_;
    Picture picture_;
    std::string floating_;  // the signs that stood already
    bool isAfterPoint_ = false;
};

// A comma behind a point is the decimal one.
std::string WithDecimalPoint(std::string picture) {
    const std::size_t comma = picture.rfind(',');
    if (comma == std::string::npos || picture.find('.') > comma) return picture;
    for (char& character : picture) character = character == ',' ? '.' : character == '.' ? ',' : character;
    return picture;
}

std::string Times(char symbol, std::int64_t count) {
    return count == 1 ? std::string(1, symbol) : std::string(1, symbol) + "(" + std::to_string(count) + ")";
}

}  // namespace

bool Picture::IsNumeric() const { return category == Category::Number || category == Category::EditedNumber; }

std::optional<Picture> ReadPicture(std::string_view text) {
    const auto symbols = Split(WithDecimalPoint(Upper(text)));
    if (!symbols) return {};
    if (Count(*symbols, "E") > 0) {
        const bool isFloat =
            Count(*symbols, "E") == 1 && Count(*symbols, "9") > 1 && Count(*symbols, "XANGU1") == 0;
        if (!isFloat) return {};
        return Picture{
            .category = Picture::Category::Float, .length = Count(*symbols, "9+-.E"), .isSigned = true};
    }
    if (Count(*symbols, "XANGU1") == 0) return NumberReader(*symbols).Read();
    if (Count(*symbols, "SVPZ*+-$,.CD") > 0) return {};
    return TextPicture(*symbols);
}

std::string PlainPicture(const Picture& picture) {
    if (!picture.IsNumeric()) return Times('X', picture.length);
    std::string plain = picture.isSigned ? "S" : "";
    if (picture.integerDigits > 0) plain += Times('9', picture.integerDigits);
    if (picture.decimalDigits > 0) plain += "V" + Times('9', picture.decimalDigits);
    return plain;
}

}  // namespace tessel::layout

#include "schema/identifiers.h"

#include <utility>

#include "platform/text/utf8.h"
#include "tessel/convert.h"

namespace tessel {

namespace {

constexpr std::uint16_t doubleByteZero = 0x824F;
constexpr std::size_t freeNameBase = 47;  // characters

bool IsDigit(char32_t character) { return character >= U'0' && character <= U'9'; }

bool IsLetter(char32_t character) {
    return (character >= U'A' && character <= U'Z') || (character >= U'a' && character <= U'z');
}

char32_t NationalCharacter(const ComponentState& state) {
    const auto list =
        state.Frontend().WorkspaceOptions().SelectSingleNode(".//LIST[@NAME='ObjectComputerEncoding']");
    const auto encoding = list ? list.Attribute("VALUE") : std::nullopt;
    if (!encoding)
        throw Error(ErrorKind::Host,
                    "The workspace options lack the LIST \"ObjectComputerEncoding\" with its VALUE.");
    return *encoding == "CCSID930" ? U'\\' : U'$';
}

// A caret that moves down with the characters dropped before it.
class Caret {
  public:
    explicit Caret(Value& selStart) : selStart_(selStart) {
        if (!selStart.IsMissing() && !selStart.IsNull()) position_ = ToInt32(selStart);
    }
    ~Caret() {
        if (position_) selStart_ = *position_;
    }
    Caret(const Caret&) = delete;
    Caret& operator=(const Caret&) = delete;

    void Dropped(std::size_t position) {  // counting from 1
        if (position_ && std::cmp_greater_equal(*position_, position)) --*position_;
    }

  private:
    Value& selStart_;
    std::optional<std::int32_t> position_;
};

bool IsDoubleByteName(const text::CodePage& codePage, const std::u32string& characters) {
    bool any = false;
    for (const char32_t character : characters) {
        if (IsDigit(character)) continue;
        if (!codePage.IsDoubleByte(character)) return false;
        any = true;
    }
    return any;
}

std::string WithDoubleByteDigits(const text::CodePage& codePage, std::u32string characters) {
    for (char32_t& character : characters)
        if (IsDigit(character))
            character = codePage.CharacterOf(static_cast<std::uint16_t>(doubleByteZero + (character - U'0')))
                            .value_or(character);
    return text::Encode(characters);
}

// What the rule makes of one character; 0 drops it.
char32_t Kept(char32_t character, char32_t national, bool isFirst) {
    if (IsLetter(character) || character == national || character == U'#' || character == U'@')
        return character;
    if (isFirst) return 0;
    if (IsDigit(character) || character == U'_' || character == U' ') return character;
    return character == U'-' ? U'_' : 0;
}

}  // namespace

std::string SQLID(const ComponentState& state, std::string_view id, Value& selStart) {
    const char32_t national = NationalCharacter(state);
    const std::u32string characters = text::Decode(id);
    if (IsDoubleByteName(*state.codePage, characters))
        return WithDoubleByteDigits(*state.codePage, characters);

    Caret caret(selStart);
    std::string result;
    for (std::size_t i = 0; i < characters.size(); ++i) {
        if (const char32_t kept = Kept(characters[i], national, result.empty()))
            result += static_cast<char>(kept);
        else
            caret.Dropped(i + 1);
    }
    return result;
}

std::string SQLID(const ComponentState& state, std::string_view id) {
    Value noCaret = Missing{};
    return SQLID(state, id, noCaret);
}

std::string SQLInteger(std::string_view repr, Value& selStart) {
    Caret caret(selStart);
    std::string result;
    const std::u32string characters = text::Decode(repr);
    for (std::size_t i = 0; i < characters.size(); ++i) {
        if (IsDigit(characters[i]))
            result += static_cast<char>(characters[i]);
        else
            caret.Dropped(i + 1);
    }
    return result;
}

bool SetNameField(const ComponentState& state, db::TableSet& row, std::string_view field, const Value& name) {
    const auto* given = name.As<std::string>();
    if (given) {
        std::string_view stored = text::Trim(*given);
        if (const int size = row.FieldSize(field); size > 0) stored = text::Left(stored, std::size_t(size));
        const std::string outcome = SQLID(state, stored);
        if (!outcome.empty() && outcome == *given) {
            row.Set(field, outcome);
            return true;
        }
    }
    row.Cancel();
    return false;
}

std::string GetFreeName(const ComponentState& state, std::string& name, std::string_view fallback,
                        const std::function<bool(const std::string&)>& inUse) {
    if (name.empty()) name = fallback;
    const std::string base(text::Left(name, freeNameBase));
    std::string candidate = SQLID(state, name);
    for (int counter = 1; inUse(candidate); ++counter) {
        candidate = SQLID(state, base + std::to_string(counter));
        if (candidate.empty()) break;  // no number can make a name of it
    }
    return candidate;
}

}  // namespace tessel

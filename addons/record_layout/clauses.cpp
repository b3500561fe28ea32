#include "clauses.h"

#include <algorithm>
#include <array>
#include <map>

#include "line_text.h"

namespace tessel::layout {

namespace {

constexpr std::size_t longestCount = 9;  // digits
constexpr std::array<std::string_view, 10> wordsBeforeNumbers{"VALUE", "VALUES", "IS",      "ARE", "OCCURS",
                                                              "TO",    "THRU",   "THROUGH", "PIC", "PICTURE"};
constexpr std::array<std::string_view, 4> wordsAfterNumbers{"THRU", "THROUGH", "TO", "TIMES"};

template <typename Words>
bool IsOneOf(const Token& token, const Words& words) {
    return std::ranges::any_of(words, [&](std::string_view word) { return Is(token, word); });
}

}  // namespace

ClauseReader::Clause ClauseReader::FindClause(const Token& token) {
    static const std::map<std::string, Clause, std::less<>> clauses{
        {"REDEFINES", &ClauseReader::ReadRedefines},
        {"PIC", &ClauseReader::ReadPictureClause},
        {"PICTURE", &ClauseReader::ReadPictureClause},
        {"USAGE", &ClauseReader::ReadUsage},
        {"GROUP-USAGE", &ClauseReader::ReadUsage},
        {"OCCURS", &ClauseReader::ReadOccurs},
        {"ASCENDING", &ClauseReader::ReadKeys},
        {"DESCENDING", &ClauseReader::ReadKeys},
        {"KEY", &ClauseReader::ReadKeys},
        {"INDEXED", &ClauseReader::ReadKeys},
        {"SIGN", &ClauseReader::ReadSign},
        {"LEADING", &ClauseReader::ReadSign},
        {"TRAILING", &ClauseReader::ReadSign},
        {"SEPARATE", &ClauseReader::ReadSign},
        {"VALUE", &ClauseReader::ReadValue},
        {"VALUES", &ClauseReader::ReadValue},
        {"BLANK", &ClauseReader::ReadBlank},
        {"JUSTIFIED", &ClauseReader::ReadJustified},
        {"JUST", &ClauseReader::ReadJustified},
        {"SYNC", &ClauseReader::ReadSynchronized},
        {"SYNCHRONIZED", &ClauseReader::ReadSynchronized},
        {"GLOBAL", &ClauseReader::ReadNothing},
        {"EXTERNAL", &ClauseReader::ReadNothing},
    };
    if (token.kind != Token::Kind::Word) return nullptr;
    const auto found = clauses.find(Upper(token.text));
    if (found != clauses.end()) return found->second;
    return FindUsage(token) ? &ClauseReader::ReadUsage : nullptr;
}

void ClauseReader::ReadInto(Item& item) {
    while (!AtEnd()) {
        const Clause clause = FindClause(tokens_[position_]);
        (this->*(clause ? clause : &ClauseReader::ReadUnknown))(item);
    }
}

std::string ClauseReader::ReadWords() {
    std::string words;
    while (!AtEnd() && !AtClause()) AppendWord(words, tokens_[position_++]);
    return words;
}

bool ClauseReader::AtEnd() const {
    if (position_ >= tokens_.size() || tokens_[position_].kind == Token::Kind::Period) return true;
    return tokens_[position_].startsLine && LevelOf(tokens_[position_]) != 0 && MayBeginEntry();
}

// Whether a number that begins a line is the level of an entry, the period before it left out.
bool ClauseReader::MayBeginEntry() const {
    if (position_ > 0 && IsOneOf(tokens_[position_ - 1], wordsBeforeNumbers)) return false;
    if (position_ + 1 >= tokens_.size()) return false;
    const Token& next = tokens_[position_ + 1];
    return next.kind == Token::Kind::Word && !IsNumber(next.text) && !IsOneOf(next, wordsAfterNumbers);
}

bool ClauseReader::AtClause() const {
    return position_ < tokens_.size() && FindClause(tokens_[position_]) != nullptr;
}

bool ClauseReader::Skip(std::string_view word) {
    const bool isThere = !AtEnd() && Is(tokens_[position_], word);
    if (isThere) ++position_;
    return isThere;
}

std::string ClauseReader::TakeWord() {
    return AtEnd() || AtClause() ? std::string() : tokens_[position_++].text;
}

std::optional<std::int64_t> ClauseReader::TakeCount() {
    const std::string word = TakeWord();
    if (!IsNumber(word) || word.size() > longestCount) return {};
    return std::stoll(word);
}

void ClauseReader::ReadRedefines(Item& item) {
    ++position_;
    item.redefines = TakeWord();
}

void ClauseReader::ReadPictureClause(Item& item) {
    ++position_;
    Skip("IS");
    const Place place = tokens_[position_ - 1].place;
    item.picture = AtEnd() ? std::string() : tokens_[position_++].text;
    item.meaning = ReadPicture(item.picture);
    if (!item.meaning) remarks_.Add(place, Text::BadPicture, {item.ShownName(), Shortened(item.picture)});
}

void ClauseReader::ReadUsage(Item& item) {
    if (Skip("USAGE") || Skip("GROUP-USAGE")) Skip("IS");
    if (AtEnd()) return;
    item.usage = FindUsage(tokens_[position_]);
    if (!item.usage) return ReadUnknown(item);
    ++position_;
    item.usage->isUnsigned = Skip("UNSIGNED");
    if (!item.usage->isUnsigned) Skip("SIGNED");
}

void ClauseReader::ReadOccurs(Item& item) {
    const Place place = tokens_[position_++].place;
    auto least = TakeCount();
    auto most = Skip("TO") ? TakeCount() : least;
    Skip("TIMES");
    OccursClause occurs{.least = least.value_or(0), .most = most.value_or(0), .dependingOn = {}};
    if (Skip("DEPENDING")) {
        Skip("ON");
        occurs.dependingOn = ReadWords();
    }
    if (occurs.most < 1)
        remarks_.Add(place, Text::BadOccurs, {item.ShownName()});
    else
        item.occurs = std::move(occurs);
}

void ClauseReader::ReadKeys(Item&) {
    ++position_;
    (void)ReadWords();
}

void ClauseReader::ReadSign(Item& item) {
    item.hasSeparateSign |= Is(tokens_[position_++], "SEPARATE");
    Skip("IS");
    Skip("CHARACTER");
}

void ClauseReader::ReadValue(Item& item) {
    ++position_;
    if (!Skip("IS")) Skip("ARE");
    item.value = ReadWords();
}

void ClauseReader::ReadBlank(Item& item) {
    ++position_;
    Skip("WHEN");
    if (!AtEnd()) ++position_;
    item.isBlankWhenZero = true;
}

void ClauseReader::ReadJustified(Item& item) {
    ++position_;
    Skip("RIGHT");
    item.isJustified = true;
}

void ClauseReader::ReadSynchronized(Item&) {
    ++position_;
    if (!Skip("LEFT")) Skip("RIGHT");
}

void ClauseReader::ReadNothing(Item&) { ++position_; }

void ClauseReader::ReadUnknown(Item& item) {
    const Place place = tokens_[position_].place;
    std::string words = tokens_[position_++].text;
    if (const std::string more = ReadWords(); !more.empty()) words += " " + more;
    if (!SameWord(words, "IS"))
        remarks_.Add(place, Text::UnknownClause, {item.ShownName(), Shortened(words)});
}

int LevelOf(const Token& token) {
    const bool isLevel = token.kind == Token::Kind::Word && IsNumber(token.text) && token.text.size() <= 2;
    return isLevel ? std::stoi(token.text) : 0;
}

}  // namespace tessel::layout

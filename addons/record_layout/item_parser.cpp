#include "item_parser.h"

#include "clauses.h"

namespace tessel::layout {

namespace {

constexpr int renamesLevel = 66;
constexpr int conditionLevel = 88;

bool IsItemLevel(int level) { return (level >= 1 && level <= 49) || level == 77; }

class ItemParser {
  public:
    ItemParser(const Tokens& tokens, Remarks& remarks) : tokens_(tokens), remarks_(remarks) {}

    std::vector<Item> Parse() {
        while (position_ < tokens_.size()) {
            if (tokens_[position_].kind == Token::Kind::Period)
                ++position_;
            else
                ParseEntry();
        }
        return std::move(items_);
    }

  private:
    void ParseEntry() {
        const Token& first = tokens_[position_];
        const int level = LevelOf(first);
        if (IsItemLevel(level))
            ParseItem(level);
        else if (level == conditionLevel)
            ParseCondition();
        else if (level == renamesLevel)
            SkipSentence(Text::Renames);
        else if (level != 0)
            SkipLevel();
        else
            SkipSentence(Text::NoDescription);
    }

    void ParseItem(int level) {
        Item item;
        item.level = level;
        item.place = tokens_[position_++].place;
        item.name = TakeName();
        if (SameWord(item.name, "FILLER")) item.name.clear();
        clauses_.ReadInto(item);
        items_.push_back(std::move(item));
    }

    void ParseCondition() {
        Condition condition;
        condition.place = tokens_[position_++].place;
        condition.name = TakeName();
        if (!clauses_.Skip("VALUE")) clauses_.Skip("VALUES");
        if (!clauses_.Skip("IS")) clauses_.Skip("ARE");
        condition.values = TakeSentence();
        if (items_.empty() || condition.name.empty() || condition.values.empty())
            remarks_.Add(condition.place, Text::NoDescription, {"88 " + condition.name});
        else
            items_.back().conditions.push_back(std::move(condition));
    }

    std::string TakeName() {
        const bool isThere =
            !clauses_.AtEnd() && !clauses_.AtClause() && tokens_[position_].kind == Token::Kind::Word;
        return isThere ? tokens_[position_++].text : std::string();
    }

    std::string TakeSentence() {
        std::string words;
        while (!clauses_.AtEnd()) AppendWord(words, tokens_[position_++]);
        return words;
    }

    void SkipLevel() {
        const Token& level = tokens_[position_];
        remarks_.Add(level.place, Text::BadLevel, {level.text});
        ++position_;
        (void)TakeSentence();
    }

    void SkipSentence(Text text) {
        const Token& first = tokens_[position_++];
        const std::string rest = TakeSentence();
        remarks_.Add(first.place, text, {Shortened(first.text + (rest.empty() ? "" : " ") + rest)});
    }

    const Tokens& tokens_;
    Remarks& remarks_;
    std::size_t position_ = 0;
    ClauseReader clauses_{tokens_, position_, remarks_};
    std::vector<Item> items_;
};

}  // namespace

std::vector<Item> ParseItems(const Tokens& tokens, Remarks& remarks) {
    return ItemParser(tokens, remarks).Parse();
}

}  // namespace tessel::layout

#include "platform/db/constraint_names.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/db/sql_characters.h"
#include "platform/text/utf8.h"

namespace tessel::db {
namespace {

struct Token {
    std::string text;  // a word, a name without its quotes, or one symbol
    bool isQuoted = false;
};

class Tokens {
  public:
    explicit Tokens(std::string_view sql) : sql_(sql) {}

    bool Next(Token& token) {
        SkipBlanksAndComments();
        if (sql_.empty()) return false;
        const char c = sql_.front();
        token.isQuoted = c == '"' || c == '\'' || c == '`' || c == '[';
        token.text = token.isQuoted ? TakeQuoted(c == '[' ? ']' : c) : TakeWordOrSymbol();
        return true;
    }

  private:
    void SkipThrough(std::string_view end) {
        const auto found = sql_.find(end);
        sql_.remove_prefix(found == std::string_view::npos ? sql_.size() : found + end.size());
    }

    void SkipBlanksAndComments() {
        while (!sql_.empty()) {
            if (IsBlank(sql_.front()))
                sql_.remove_prefix(1);
            else if (sql_.starts_with("--"))
                SkipThrough("\n");
            else if (sql_.starts_with("/*"))
                SkipThrough("*/");
            else
                return;
        }
    }

    std::string TakeQuoted(char end) {
        std::string text;
        do {  // a doubled quote stands for itself
            sql_.remove_prefix(1);
            const auto length = std::min(sql_.find(end), sql_.size());
            text += sql_.substr(0, length);
            sql_.remove_prefix(std::min(length + 1, sql_.size()));
            if (end == ']' || !sql_.starts_with(end)) return text;
            text += end;
        } while (true);
    }

    std::string TakeWordOrSymbol() {
        const auto end = std::find_if_not(sql_.begin(), sql_.end(), IsWordPart);
        const auto length = std::max<std::size_t>(1, static_cast<std::size_t>(end - sql_.begin()));
        const std::string text(sql_.substr(0, length));
        sql_.remove_prefix(length);
        return text;
    }

    std::string_view sql_;
};

// The words that begin a constraint of a table where a column's name could stand.
constexpr std::array<std::string_view, 5> tableConstraints{"constraint", "primary", "unique", "foreign",
                                                           "check"};
// The words that begin a constraint whose name does not matter.
constexpr std::array<std::string_view, 7> namesPassedOver{"check",   "not",       "null", "default",
                                                          "collate", "generated", "as"};

template <typename Words>
bool Holds(const Words& words, const std::string& word) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

class Reader {
  public:
    ConstraintNames Read(std::string_view createTable) {
        Tokens tokens(createTable);
        for (Token token; tokens.Next(token);) Take(token);
        return std::move(names_);
    }

  private:
    void Take(const Token& token) {
        const std::string symbol = token.isQuoted ? "" : token.text;
        if (symbol == "(") {
            expectsColumn_ = ++depth_ == 2;
        } else if (symbol == ")") {
            if (--depth_ == 1) inColumnList_ = false;
        } else if (depth_ == 1) {
            symbol == "," ? BeginItem() : TakeOfItem(token);
        } else if (depth_ == 2 && inColumnList_) {
            TakeOfColumnList(token, symbol == ",");
        }
    }

    // A column or a constraint of the table.
    void BeginItem() {
        item_ = Item::Begins;
        name_.clear();
        isForeignKey_ = false;
    }

    void TakeOfColumnList(const Token& token, bool isComma) {
        if (expectsColumn_ && !isComma) names_.uniques.back().columns.push_back(token.text);
        expectsColumn_ = isComma;
    }

    void TakeOfItem(const Token& token) {
        const std::string word = token.isQuoted ? "" : text::LowerAscii(token.text);
        if (expectsName_) {
            name_ = token.text;
            expectsName_ = false;
            return;
        }
        if (item_ == Item::Begins) {
            item_ = Holds(tableConstraints, word) ? Item::Constraint : Item::Column;
            column_ = token.text;
            if (item_ == Item::Column) return;
        }
        TakeWord(word);
    }

    void TakeWord(const std::string& word) {
        if (word == "constraint") {
            expectsName_ = true;
        } else if (word == "primary") {
            names_.primaryKey = std::exchange(name_, {});
        } else if (word == "unique") {
            inColumnList_ = item_ == Item::Constraint;
            names_.uniques.push_back({{}, std::exchange(name_, {})});
            if (!inColumnList_) names_.uniques.back().columns.push_back(column_);
        } else if (word == "foreign" || (word == "references" && !isForeignKey_)) {
            isForeignKey_ = word == "foreign";
            names_.foreignKeys.push_back(std::exchange(name_, {}));
        } else if (word == "references") {
            isForeignKey_ = false;
        } else if (Holds(namesPassedOver, word)) {
            name_.clear();
        }
    }

    enum class Item { Begins, Column, Constraint };

    ConstraintNames names_;
    int depth_ = 0;  // of parentheses; the items stand at 1
    Item item_ = Item::Begins;
    std::string name_;    // that the next constraint bears
    std::string column_;  // that the item defines, if it defines one
    bool expectsName_ = false;
    bool isForeignKey_ = false;  // between FOREIGN and its REFERENCES
    bool inColumnList_ = false;  // of a UNIQUE
    bool expectsColumn_ = false;
};

}  // namespace

ConstraintNames ReadConstraintNames(std::string_view createTable) { return Reader().Read(createTable); }

}  // namespace tessel::db

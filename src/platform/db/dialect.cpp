#include "platform/db/dialect.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <optional>
#include <utility>

#include "platform/db/error.h"
#include "platform/db/sql_characters.h"
#include "platform/text/utf8.h"

namespace tessel::db {
namespace {

enum class Clause { Expression, SelectList, Assignments, Ordering };

// The words that begin a clause.
constexpr std::array<std::pair<std::string_view, Clause>, 8> clauseWords{{
    {"select", Clause::SelectList},
    {"set", Clause::Assignments},
    {"order", Clause::Ordering},
    {"group", Clause::Ordering},
    {"from", Clause::Expression},
    {"where", Clause::Expression},
    {"having", Clause::Expression},
    {"limit", Clause::Expression},
}};

constexpr std::array<std::string_view, 4> statementWords{"select", "insert", "update", "delete"};

class Scanner {
  public:
    explicit Scanner(std::string_view sql) : sql_(sql) { result_.text.reserve(sql.size() + 16); }

    Rewritten Run() {
        CheckCharacters();
        while (position_ < sql_.size()) Token();
        if (tokens_ == 0) Refuse("it holds no statement");
        return std::move(result_);
    }

  private:
    [[noreturn]] void Refuse(const std::string& reason) const {
        throw DatabaseError(ErrorKind::Sql, "The statement cannot be run because " + reason + ".",
                            std::string(sql_));
    }

    void CheckCharacters() const {
        if (sql_.find('\0') != std::string_view::npos) Refuse("it holds a NUL character");
        if (!text::IsValidUtf8(sql_)) Refuse("it holds bytes that are not UTF-8");
    }

    char Peek(std::size_t ahead = 0) const {
        return position_ + ahead < sql_.size() ? sql_[position_ + ahead] : '\0';
    }
    void SkipBlanks() {
        while (IsBlank(Peek())) ++position_;
    }
    bool Skip(std::string_view symbol) {
        if (!sql_.substr(position_).starts_with(symbol)) return false;
        position_ += symbol.size();
        return true;
    }
    std::string_view TakeWord() {
        const std::size_t start = position_;
        while (IsWordPart(Peek())) ++position_;
        return sql_.substr(start, position_ - start);
    }

    void Token() {
        const char c = Peek();
        if (IsBlank(c)) return Copy(1);
        if (++tokens_ == 1) CheckStatement();
        if (tokens_ == 4 && isDelete_) MarkAlias();
        if (c == '\'') return Text();
        if (IsDigit(c)) return Number();
        if (IsWordStart(c)) return Word();
        if (c == '"' || c == '[' || c == '`') return QuotedName(c == '[' ? ']' : c);
        Symbol(c);
    }

    std::string PeekWord() const {
        std::size_t length = 0;
        while (IsWordPart(Peek(length))) ++length;
        return text::LowerAscii(sql_.substr(position_, length));
    }

    void CheckStatement() {
        const std::string word = PeekWord();
        isDelete_ = word == "delete";
        if (std::find(statementWords.begin(), statementWords.end(), word) == statementWords.end())
            Refuse("only select, insert, update and delete are statements here");
    }

    // What follows "delete from T" is its alias, unless it begins the rest of the statement.
    void MarkAlias() {
        const std::string word = PeekWord();
        if (Peek() != ';' && word != "where" && word != "as") result_.text += "as ";
    }

    void Copy(std::size_t count) {
        result_.text += sql_.substr(position_, count);
        position_ += count;
    }

    bool KeepsConstants() const {
        return clauses_.back() == Clause::SelectList || clauses_.back() == Clause::Ordering;
    }
    void Parameter(Value value) {
        result_.text += '?';
        result_.parameters.push_back(std::move(value));
    }

    void Text() {
        std::string text = TakeText();
        while (auto more = TakeJoinedConstant()) text += *more;
        if (!KeepsConstants()) return Parameter(std::move(text));
        result_.text += '\'';
        for (const char c : text) result_.text.append(c == '\'' ? 2 : 1, c);
        result_.text += '\'';
    }

    std::string TakeText() {
        std::string text;
        ++position_;
        while (true) {
            const std::size_t end = sql_.find('\'', position_);
            if (end == std::string_view::npos) Refuse("a text in it has no closing apostrophe");
            text += sql_.substr(position_, end - position_);
            position_ = end + 1;
            if (Peek() != '\'') return text;
            text += '\'';
            ++position_;
        }
    }

    // A constant that is joined to the one before with &; nothing, and nothing taken, when there is none.
    std::optional<std::string> TakeJoinedConstant() {
        const std::size_t start = position_;
        SkipBlanks();
        if (Skip("&")) {
            SkipBlanks();
            if (Peek() == '\'') return TakeText();
            if (auto character = TakeCharacter()) return character;
        }
        position_ = start;
        return std::nullopt;
    }

    std::optional<std::string> TakeCharacter() {
        if (!text::SameText(TakeWord(), "chr")) return std::nullopt;
        SkipBlanks();
        if (!Skip("(")) return std::nullopt;
        SkipBlanks();
        unsigned code = 0;
        while (IsDigit(Peek()) && code < 128)
            code = code * 10 + static_cast<unsigned>(sql_[position_++] - '0');
        SkipBlanks();
        if (!Skip(")") || code == 0 || code > 127) return std::nullopt;
        return std::string(1, static_cast<char>(code));
    }

    void Number() {
        const std::size_t length = NumberLength();
        if (KeepsConstants()) return Copy(length);
        Parameter(NumberValue(sql_.substr(position_, length)));
        position_ += length;
    }

    std::size_t NumberLength() const {
        std::size_t end = 0;
        const auto digits = [&] {
            while (IsDigit(Peek(end))) ++end;
        };
        digits();
        if (Peek(end) == '.') {
            ++end;
            digits();
        }
        const bool isSigned = Peek(end + 1) == '+' || Peek(end + 1) == '-';
        if ((Peek(end) | 0x20) == 'e' && IsDigit(Peek(end + (isSigned ? 2 : 1)))) {
            end += isSigned ? 2 : 1;
            digits();
        }
        return end;
    }

    static Value NumberValue(std::string_view digits) {
        const char* const end = digits.data() + digits.size();
        std::int32_t integer = 0;
        const auto [stop, error] = std::from_chars(digits.data(), end, integer);
        if (error == std::errc() && stop == end) return integer;
        double real = std::numeric_limits<double>::infinity();
        std::from_chars(digits.data(), end, real);
        return real;
    }

    void Word() {
        const std::string_view word = TakeWord();
        const std::string lower = text::LowerAscii(word);
        if (lower == "unique") {
            result_.text += "[Unique]";
        } else if ((lower == "true" || lower == "false") && !KeepsConstants()) {
            Parameter(std::int32_t{lower == "true"});
        } else if (lower == "chr" && AtParenthesis()) {
            result_.text += "char";
        } else {
            EnterClause(lower);
            result_.text += word;
        }
    }

    bool AtParenthesis() const {
        const std::size_t next = sql_.find_first_not_of(" \t\r\n", position_);
        return next != std::string_view::npos && sql_[next] == '(';
    }

    void EnterClause(std::string_view word) {
        for (const auto& [name, clause] : clauseWords)
            if (word == name) clauses_.back() = clause;
    }

    void QuotedName(char close) {
        const std::size_t end = sql_.find(close, position_ + 1);
        if (end == std::string_view::npos) Refuse("a quoted name in it is not closed");
        Copy(end + 1 - position_);
    }

    void Symbol(char c) {
        if (c == ';') return End();
        if (c == '?' || c == ':' || c == '@' || c == '$') Refuse(std::string("it holds the mark ") + c);
        if ((c == '<' || c == '>') && sql_.substr(position_ + 1).starts_with('=')) return Copy(2);
        if (NullComparison()) return;
        if (Skip("&")) {
            result_.text += "||";
            return;
        }
        if (c == '(')
            clauses_.push_back(clauses_.back() == Clause::Assignments ? Clause::Expression : clauses_.back());
        if (c == ')' && clauses_.size() > 1) clauses_.pop_back();
        // A blank keeps two signs from becoming the beginning of a comment.
        const char last = result_.text.back();
        if ((c == '-' && last == '-') || (c == '*' && last == '/')) result_.text += ' ';
        Copy(1);
    }

    bool NullComparison() {
        const std::size_t start = position_;
        const bool unequal = Skip("<>") || Skip("!=");
        const bool compares =
            unequal || (clauses_.back() != Clause::Assignments && (Skip("==") || Skip("=")));
        SkipBlanks();
        if (compares && text::SameText(TakeWord(), "null")) {
            result_.text += unequal ? " is not null" : " is null";
            return true;
        }
        position_ = start;
        return false;
    }

    void End() {
        ++position_;
        SkipBlanks();
        if (position_ < sql_.size()) Refuse("a second statement follows the first");
    }

    std::string_view sql_;
    std::size_t position_ = 0;
    Rewritten result_;
    std::vector<Clause> clauses_{Clause::Expression};  // one for each open parenthesis, and one more
    std::size_t tokens_ = 0;                           // including the current one
    bool isDelete_ = false;
};

}  // namespace

Rewritten Rewrite(std::string_view sql) { return Scanner(sql).Run(); }

}  // namespace tessel::db

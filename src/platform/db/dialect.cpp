#include "platform/db/dialect.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>
#include <utility>

#include "platform/db/error.h"
#include "platform/db/sql_characters.h"
#include "platform/text/utf8.h"

namespace tessel::db {
namespace {

enum class Clause { Expression, SelectList, Assignments, Ordering };

// A word of at most 8 bytes as one number, whatever its letters' case; 0 for a longer one. Every word of a
// statement is held against all that mean something here, and numbers are compared at once.
constexpr std::uint64_t Keyword(std::string_view word) {
    std::array<char, sizeof(std::uint64_t)> bytes{};
    if (word.size() > bytes.size()) return 0;
    std::copy(word.begin(), word.end(), bytes.begin());
    return std::bit_cast<std::uint64_t>(bytes) | 0x2020'2020'2020'2020U;
}

// The words that begin a clause.
constexpr std::array<std::pair<std::uint64_t, Clause>, 8> clauseWords{{
    {Keyword("select"), Clause::SelectList},
    {Keyword("set"), Clause::Assignments},
    {Keyword("order"), Clause::Ordering},
    {Keyword("group"), Clause::Ordering},
    {Keyword("from"), Clause::Expression},
    {Keyword("where"), Clause::Expression},
    {Keyword("having"), Clause::Expression},
    {Keyword("limit"), Clause::Expression},
}};

constexpr std::array statementWords{Keyword("select"), Keyword("insert"), Keyword("update"),
                                    Keyword("delete")};

class Scanner {
  public:
    explicit Scanner(std::string_view sql) : sql_(sql) { result_.text.reserve(sql.size() + 16); }

    Rewritten Run() {
        CheckCharacters();
        for (SkipBlanks(); position_ < sql_.size(); SkipBlanks()) Token();
        if (tokens_ == 0) Refuse("it holds no statement");
        Replace(position_, {});
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
    std::string_view PeekWord() const {
        const std::string_view rest = sql_.substr(position_);
        return {rest.begin(), std::find_if_not(rest.begin(), rest.end(), IsWordPart)};
    }
    std::string_view TakeWord() {
        const std::string_view word = PeekWord();
        position_ += word.size();
        return word;
    }

    // What was passed since the last replacement stands as it is up to `start`; from there on to here the
    // replacement does.
    void Replace(std::size_t start, std::string_view replacement) {
        result_.text += sql_.substr(kept_, start - kept_);
        result_.text += replacement;
        kept_ = position_;
    }

    void Token() {
        const char c = Peek();
        if (++tokens_ == 1) CheckStatement();
        if (tokens_ == 4 && isDelete_) MarkAlias();
        if (c == '\'') return Text();
        if (IsDigit(c)) return Number();
        if (IsWordStart(c)) return Word();
        if (c == '"' || c == '[' || c == '`') return QuotedName(c == '[' ? ']' : c);
        Symbol(c);
    }

    void CheckStatement() {
        const std::uint64_t word = Keyword(PeekWord());
        isDelete_ = word == Keyword("delete");
        if (std::find(statementWords.begin(), statementWords.end(), word) == statementWords.end())
            Refuse("only select, insert, update and delete are statements here");
    }

    // What follows "delete from T" is its alias, unless it begins the rest of the statement.
    void MarkAlias() {
        const std::uint64_t word = Keyword(PeekWord());
        if (Peek() != ';' && word != Keyword("where") && word != Keyword("as")) Replace(position_, "as ");
    }

    bool KeepsConstants() const {
        return clauses_.back() == Clause::SelectList || clauses_.back() == Clause::Ordering;
    }
    void Parameter(std::size_t start, Value value) {
        Replace(start, "?");
        result_.parameters.push_back(std::move(value));
    }

    void Text() {
        const std::size_t start = position_;
        std::string text = TakeText();
        while (auto more = TakeJoinedConstant()) text += *more;
        if (!KeepsConstants()) return Parameter(start, std::move(text));
        Replace(start, "'");
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
        if (Keyword(TakeWord()) != Keyword("chr")) return std::nullopt;
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
        const std::size_t start = position_;
        position_ += NumberLength();
        if (!KeepsConstants()) Parameter(start, NumberValue(sql_.substr(start, position_ - start)));
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
        const std::size_t start = position_;
        const std::uint64_t word = Keyword(TakeWord());
        const bool isTrue = word == Keyword("true");
        if (word == Keyword("unique")) return Replace(start, "[Unique]");
        if (word == Keyword("chr") && AtParenthesis()) return Replace(start, "char");
        if ((isTrue || word == Keyword("false")) && !KeepsConstants())
            return Parameter(start, std::int32_t{isTrue});
        EnterClause(word);
    }

    bool AtParenthesis() const {
        const std::size_t next = sql_.find_first_not_of(" \t\r\n", position_);
        return next != std::string_view::npos && sql_[next] == '(';
    }

    void EnterClause(std::uint64_t word) {
        for (const auto& [name, clause] : clauseWords)
            if (word == name) clauses_.back() = clause;
    }

    void QuotedName(char close) {
        const std::size_t end = sql_.find(close, position_ + 1);
        if (end == std::string_view::npos) Refuse("a quoted name in it is not closed");
        position_ = end + 1;
    }

    void Symbol(char c) {
        if (c == ';') return End();
        if (c == '?' || c == ':' || c == '@' || c == '$') Refuse(std::string("it holds the mark ") + c);
        if ((c == '<' || c == '>') && Peek(1) == '=') {
            position_ += 2;
            return;
        }
        if (NullComparison()) return;
        if (Skip("&")) return Replace(position_ - 1, "||");
        if (c == '(')
            clauses_.push_back(clauses_.back() == Clause::Assignments ? Clause::Expression : clauses_.back());
        if (c == ')' && clauses_.size() > 1) clauses_.pop_back();
        // A blank keeps two signs from becoming the beginning of a comment.
        const char last = sql_[position_ - 1];
        if ((c == '-' && last == '-') || (c == '*' && last == '/')) Replace(position_, " ");
        ++position_;
    }

    bool NullComparison() {
        const std::size_t start = position_;
        const bool unequal = Skip("<>") || Skip("!=");
        const bool compares =
            unequal || (clauses_.back() != Clause::Assignments && (Skip("==") || Skip("=")));
        SkipBlanks();
        const bool isNull = compares && Keyword(TakeWord()) == Keyword("null");
        if (isNull)
            Replace(start, unequal ? " is not null" : " is null");
        else
            position_ = start;
        return isNull;
    }

    void End() {
        const std::size_t start = position_++;
        SkipBlanks();
        if (position_ < sql_.size()) Refuse("a second statement follows the first");
        Replace(start, {});
    }

    std::string_view sql_;
    std::size_t position_ = 0;
    std::size_t kept_ = 0;  // where what is not yet in the result begins
    Rewritten result_;
    std::vector<Clause> clauses_{Clause::Expression};  // one for each open parenthesis, and one more
    std::size_t tokens_ = 0;                           // including the current one
    bool isDelete_ = false;
};

}  // namespace

Rewritten Rewrite(std::string_view sql) { return Scanner(sql).Run(); }

}  // namespace tessel::db

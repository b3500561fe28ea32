#include "copy_statement.h"

namespace tessel::layout {

namespace {

class StatementReader {
  public:
    StatementReader(const Tokens& statement, Remarks& remarks) : tokens_(statement), remarks_(remarks) {}

    std::optional<CopyStatement> Read() {
        position_ = 1;  // after COPY itself
        if (AtEnd()) return {};
        const Token& name = tokens_[position_++];
        copy_.name = name.text;
        if (name.kind == Token::Kind::Literal) TakeQuotesOff();
        if (Skip("OF") || Skip("IN")) ++position_;
        if (Skip("SUPPRESS")) Skip("PRINTING");
        if (!AtEnd() && !Skip("REPLACING")) return {};
        while (!AtEnd())
            if (!ReadReplacement()) return {};
        return std::move(copy_);
    }

  private:
    bool AtEnd() const { return position_ >= tokens_.size(); }

    bool Skip(std::string_view word) {
        const bool isThere = !AtEnd() && Is(tokens_[position_], word);
        if (isThere) ++position_;
        return isThere;
    }

    void TakeQuotesOff() {
        const std::size_t quote = copy_.name.find_first_of("\"'");
        const std::size_t last = copy_.name.find_last_of("\"'");
        copy_.name = last > quote ? copy_.name.substr(quote + 1, last - quote - 1) : std::string();
    }

    bool ReadReplacement() {
        Replacement replacement;
        if (Skip("LEADING"))
            replacement.of = Replacement::Of::Leading;
        else if (Skip("TRAILING"))
            replacement.of = Replacement::Of::Trailing;
        if (AtEnd()) return false;
        replacement.from = ReadOperand();
        if (!Skip("BY") || AtEnd()) return false;
        replacement.to = ReadOperand();
        if (!MakeReplacement(replacement)) return false;
        copy_.replacements.push_back(std::move(replacement));
        return true;
    }

    Tokens ReadOperand() {
        const Token& operand = tokens_[position_++];
        return operand.kind == Token::Kind::PseudoText ? TokenizePseudoText(operand, remarks_)
                                                       : Tokens{operand};
    }

    const Tokens& tokens_;
    Remarks& remarks_;
    CopyStatement copy_;
    std::size_t position_ = 0;
};

}  // namespace

std::optional<CopyStatement> ReadCopyStatement(const Tokens& statement, Remarks& remarks) {
    return StatementReader(statement, remarks).Read();
}

}  // namespace tessel::layout

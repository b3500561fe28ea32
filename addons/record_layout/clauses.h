#pragma once

#include <optional>
#include <string>

#include "items.h"
#include "tokens.h"

namespace tessel::layout {

// Reads the clauses of one description from a row of words.
class ClauseReader {
  public:
    // Starts at `position`, which is left at the first word that is not read.
    ClauseReader(const Tokens& tokens, std::size_t& position, Remarks& remarks)
        : tokens_(tokens), position_(position), remarks_(remarks) {}

    // Reads up to the period, which is left, or to what must be the next description.
    void ReadInto(Item& item);

    // Reads the words up to the next clause, or the end of the description.
    [[nodiscard]] std::string ReadWords();

    [[nodiscard]] bool AtEnd() const;  // of the description
    [[nodiscard]] bool AtClause() const;

    bool Skip(std::string_view word);  // whether it was there

  private:
    using Clause = void (ClauseReader::*)(Item&);
    [[nodiscard]] static Clause FindClause(const Token& token);

    void ReadRedefines(Item& item);
    void ReadPictureClause(Item& item);
    void ReadUsage(Item& item);
    void ReadOccurs(Item& item);
    void ReadKeys(Item& item);
    void ReadSign(Item& item);
    void ReadValue(Item& item);
    void ReadBlank(Item& item);
    void ReadJustified(Item& item);
    void ReadSynchronized(Item& item);
    void ReadNothing(Item& item);
    void ReadUnknown(Item& item);

    [[nodiscard]] bool MayBeginEntry() const;
    [[nodiscard]] std::string TakeWord();  // empty at the end
    [[nodiscard]] std::optional<std::int64_t> TakeCount();

    const Tokens& tokens_;
    std::size_t& position_;
    Remarks& remarks_;
};

// The level that the word gives, 1 to 99; 0 when it is none.
[[nodiscard]] int LevelOf(const Token& token);

// What the word says as a usage.
[[nodiscard]] std::optional<UsageClause> FindUsage(const Token& token);

}  // namespace tessel::layout

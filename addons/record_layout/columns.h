#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "items.h"

namespace tessel::layout {

enum class Occurrences { Expand, Once };
enum class Redefinitions { First, All };

struct Choices {
    Occurrences occurrences = Occurrences::Expand;
    Redefinitions redefinitions = Redefinitions::First;
    bool hasPrefix = false;  // the names of the groups stand in front of an item's own
};

// An item that makes a column, or one for each occurrence.
struct Field {
    const Item* item = nullptr;
    std::string name;                         // with its groups' in front where that is chosen
    std::string redefines;                    // what it redefines, or the innermost group around it that does
    std::vector<const OccursClause*> occurs;  // the groups' and its own, the outermost first
};

struct Column {
    std::size_t field = 0;                  // its place in Plan::fields
    std::vector<std::int64_t> occurrences;  // one number from 1 for each `occurs`; empty when taken once
};

struct Plan {
    std::vector<Field> fields;
    std::vector<Column> columns;

    // The name that the column should have: its field's, cut where it must be, and each occurrence's number.
    [[nodiscard]] std::string NameOf(const Column& column) const;
};

inline constexpr std::int64_t mostColumns = 10'000;

// The columns of a record, in its order; what makes none gets a remark. Throws Complaint for none at all, and
// for too many.
[[nodiscard]] Plan MakePlan(const Item& record, const Choices& choices, Remarks& remarks);

}  // namespace tessel::layout

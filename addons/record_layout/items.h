#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "picture.h"
#include "remarks.h"

namespace tessel::layout {

enum class Usage { Display, National, Binary, Native, Packed, Float, Double, Index, Address };

// The usage as it is written, such as COMP-5, and what it means.
struct UsageClause {
    std::string word;
    Usage usage = Usage::Display;
    int bytes = 0;  // of a number whose size the word itself says, else 0
    bool isUnsigned = false;
};

struct OccursClause {
    std::int64_t least = 1;  // where a count decides
    std::int64_t most = 1;
    std::string dependingOn;  // empty where none does
};

// An entry of the level 88.
struct Condition {
    std::string name;
    std::string values;  // as they are written
    Place place;
};

// A data item: a group, or what a column is made of.
struct Item {
    int level = 0;     // 0: a record whose 01 stands elsewhere
    std::string name;  // empty for FILLER
    Place place;
    std::string picture;  // as it is written; empty for none
    std::optional<Picture> meaning;
    std::optional<UsageClause> usage;  // the group's where the item has none of its own
    std::optional<OccursClause> occurs;
    std::string redefines;  // empty: does not
    std::string value;
    bool hasSeparateSign = false;
    bool isBlankWhenZero = false;
    bool isJustified = false;
    std::vector<Condition> conditions;
    std::vector<Item> children;

    [[nodiscard]] std::string ShownName() const { return name.empty() ? "FILLER" : name; }
};

}  // namespace tessel::layout

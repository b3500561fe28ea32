#include "free_names.h"

#include "line_text.h"

namespace tessel::layout {

namespace {

constexpr std::size_t longestBase = 47;  // characters

}  // namespace

void FreeNames::Reserve(const std::string& name) { taken_.insert(Upper(name)); }

std::string FreeNames::Take(const std::string& name) {
    std::string free = name;
    const std::string base(FirstCharacters(name, longestBase));
    int& number = lastNumbers_[Upper(base)];
    while (!taken_.insert(Upper(free)).second) free = base + std::to_string(++number);
    return free;
}

}  // namespace tessel::layout

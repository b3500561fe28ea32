#include "workbench/load/free_names.h"

#include "platform/text/utf8.h"

namespace tessel::workbench {
namespace {

constexpr std::size_t longestName = 64;
constexpr std::size_t longestNumbered = 58;  // leaves room for the number

}  // namespace

std::string FreeNames::Plain(std::string_view wanted, std::string_view fallback) const {
    const std::string name = rule_(wanted);
    const auto cut = text::Trim(text::Left(name, longestName));
    return std::string(cut.empty() ? fallback : cut);
}

std::string FreeNames::Take(std::string_view wanted, std::string_view fallback, const FreeNames* others) {
    const std::string plain = Plain(wanted, fallback);
    const std::string base(text::Left(plain, longestNumbered));
    std::string name = plain;
    const auto isTaken = [&] { return IsTaken(name) || (others && others->IsTaken(name)); };
    int& number = lastNumbers_[text::LowerAscii(base)];
    while (isTaken()) name = rule_(base + std::to_string(++number));
    Enter(name);
    return name;
}

bool FreeNames::IsTaken(std::string_view name) const { return taken_.contains(text::LowerAscii(name)); }

void FreeNames::Enter(std::string_view name) { taken_.insert(text::LowerAscii(name)); }

}  // namespace tessel::workbench

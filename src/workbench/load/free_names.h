#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace tessel::workbench {

// Makes an identifier of any name: drops what a name may not hold.
using NameRule = std::function<std::string(std::string_view)>;

// Gives names that differ from each other without regard to ASCII case and hold 64 characters at most.
class FreeNames {
  public:
    explicit FreeNames(const NameRule& rule) : rule_(rule) {}

    // The identifier that comes closest to `wanted`; of `fallback` when nothing of it can be kept.
    [[nodiscard]] std::string Plain(std::string_view wanted, std::string_view fallback) const;
    // The same, with a number after it when it is taken, here or among `others`; it is taken here from then
    // on.
    std::string Take(std::string_view wanted, std::string_view fallback, const FreeNames* others = nullptr);

    [[nodiscard]] bool IsTaken(std::string_view name) const;
    void Enter(std::string_view name);

  private:
    const NameRule& rule_;
    std::unordered_set<std::string> taken_;             // in lower case
    std::unordered_map<std::string, int> lastNumbers_;  // by the name without its number, likewise
};

}  // namespace tessel::workbench

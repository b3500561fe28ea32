#pragma once

#include <string>
#include <unordered_map>
#include <unordered_set>

namespace tessel::layout {

// Gives each column a name of its own, numbered as the workspace numbers names that are taken; at once also
// for the thousandth column of a name.
class FreeNames {
  public:
    // Gives the name to nobody.
    void Reserve(const std::string& name);

    // `name` itself, or the first 47 characters of it with the first free number.
    [[nodiscard]] std::string Take(const std::string& name);

  private:
    std::unordered_set<std::string> taken_;             // in upper case
    std::unordered_map<std::string, int> lastNumbers_;  // by the name without its number, likewise
};

}  // namespace tessel::layout

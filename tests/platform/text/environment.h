#pragma once

#include <cstdlib>
#include <initializer_list>
#include <map>
#include <optional>
#include <string>
#include <utility>

namespace tessel {

// Sets environment variables and gives them their old values back in the end. An empty value removes one.
class Environment {
  public:
    Environment(std::initializer_list<std::pair<std::string, std::string>> values) {
        for (const auto& [name, value] : values) {
            const char* old = std::getenv(name.c_str());
            old_.emplace(name, old ? std::optional<std::string>(old) : std::nullopt);
            Set(name, value.empty() ? std::nullopt : std::optional(value));
        }
    }
    ~Environment() {
        for (const auto& [name, value] : old_) Set(name, value);
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

  private:
    static void Set(const std::string& name, const std::optional<std::string>& value) {
        value ? setenv(name.c_str(), value->c_str(), 1) : unsetenv(name.c_str());
    }
    std::map<std::string, std::optional<std::string>> old_;
};

}  // namespace tessel

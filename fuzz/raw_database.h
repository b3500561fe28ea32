#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

struct sqlite3;

namespace tessel::fuzz {

// From the first call on, no statement of any connection runs much longer than a tenth of a second, and none
// may call the functions that make a huge text of a short statement: an input that merely asks for much work
// is no finding. Each call grants a new budget.
void RenewEngineBudget();

// A field of a row: Null, a number, a text, or bytes that are no text.
using RawField = std::variant<std::monostate, std::int64_t, double, std::string, std::vector<char>>;

// A connection beside the program's own, which keeps no rules but the engine's. Nothing is told of statements
// that fail.
class RawDatabase {
  public:
    explicit RawDatabase(const std::string& file);

    void Run(const std::string& sql);
    void Insert(std::string_view table, const std::vector<RawField>& fields);

    // Takes the rules of columns and unique indexes out of the tables.
    void DropRules();

  private:
    struct Closer {
        void operator()(sqlite3* connection) const;
    };
    std::unique_ptr<sqlite3, Closer> connection_;
};

}  // namespace tessel::fuzz

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "sql_script/dialect.h"
#include "sql_script/schema.h"
#include "sql_script/texts.h"

namespace tessel::sql_script {

// How one dialect writes each type of the editor.
class TypeTable {
  public:
    // Reads the dialect's column of a table of types (sql_types.txt describes the form). Throws
    // ErrorKind::File, naming the file and the line, for a table that is damaged anywhere.
    TypeTable(std::string_view text, const std::string& file, const Dialect& dialect, Language language);

    // Nothing when the table has no counterpart of the column's type.
    [[nodiscard]] std::optional<std::string> TypeFor(const Column& column) const;
    // What stands for every other type.
    [[nodiscard]] std::string OtherType() const;

  private:
    struct Alternative {
        std::string type;
        std::int32_t mostPrecision;
        std::int32_t mostScale;
    };
    struct Source;

    void ReadLine(const Source& source, std::vector<std::string_view> cells);
    static std::vector<Alternative> ReadCell(const Source& source, std::string_view cell);
    static Alternative ReadAlternative(const Source& source, std::string_view text);

    std::size_t place_ = 0;  // of the dialect's cells
    std::size_t width_ = 0;
    std::unordered_map<std::string, std::vector<Alternative>> types_;  // by name in upper case
};

}  // namespace tessel::sql_script

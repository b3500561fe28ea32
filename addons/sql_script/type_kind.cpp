#include "sql_script/type_kind.h"

#include <utility>

#include "sql_script/text_tools.h"

namespace tessel::sql_script {

TypeKind KindOf(std::string_view typeName) {
    static constexpr std::pair<std::string_view, TypeKind> kinds[] = {
        {"TINYINT", TypeKind::Whole},    {"SMALLINT", TypeKind::Whole},
        {"INTEGER", TypeKind::Whole},    {"BIGINT", TypeKind::Whole},
        {"NUMERIC", TypeKind::Exact},    {"DECIMAL", TypeKind::Exact},
        {"FLOAT", TypeKind::Float},      {"REAL", TypeKind::Float},
        {"DOUBLE", TypeKind::Float},     {"DATE", TypeKind::Date},
        {"TIME", TypeKind::Time},        {"TIMESTAMP", TypeKind::Timestamp},
        {"BOOLEAN", TypeKind::Boolean},  {"BINARY", TypeKind::Binary},
        {"VARBINARY", TypeKind::Binary}, {"LONGVARBINARY", TypeKind::Binary},
    };
    const std::string upper = UpperAscii(typeName);
    for (const auto& [name, kind] : kinds)
        if (name == upper) return kind;
    return TypeKind::Text;
}

}  // namespace tessel::sql_script

#include "platform/db/query.h"

#include "platform/db/error.h"
#include "platform/text/utf8.h"
#include "tessel/convert.h"

namespace tessel::db {

bool Query::Next() {
    const std::size_t count = rows_.values.size() / rows_.fields->size();
    if (current_ <= count) ++current_;
    return current_ <= count;
}

const Value& Query::operator[](std::string_view field) const {
    const auto& fields = *rows_.fields;
    const std::size_t row = (current_ - 1) * fields.size();
    if (current_ == 0 || row >= rows_.values.size())
        throw DatabaseError(ErrorKind::Sql, "The query has no current row to read a field of.", sql_);
    for (std::size_t i = 0; i < fields.size(); ++i)
        if (text::SameText(fields[i], field)) return rows_.values[row + i];
    throw DatabaseError(ErrorKind::Sql, "The query has no field \"" + std::string(field) + "\".", sql_);
}

std::int32_t Query::Integer(std::string_view field) const {
    const Value& value = (*this)[field];
    return value.IsNull() ? 0 : ToInt32(value);
}

bool Query::Boolean(std::string_view field) const {
    const Value& value = (*this)[field];
    return !value.IsNull() && ToBoolean(value);
}

std::string Query::Text(std::string_view field) const {
    const Value& value = (*this)[field];
    return value.IsNull() ? std::string() : ToText(value);
}

}  // namespace tessel::db

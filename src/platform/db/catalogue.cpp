#include "platform/db/catalogue.h"

#include <charconv>

#include "platform/db/error.h"
#include "platform/db/statement.h"
#include "platform/text/utf8.h"
#include "tessel/convert.h"

namespace tessel::db {
namespace {

// The 64 of TEXT(64).
int DeclaredSize(const std::string& type) {
    int size = 0;
    const std::size_t open = type.find('(');
    if (open != std::string::npos) std::from_chars(type.data() + open + 1, type.data() + type.size(), size);
    return size;
}

std::string ReadName(StatementCache& statements, std::string_view table) {
    constexpr std::string_view sql =
        "select name from sqlite_schema where type='table' and name=? collate nocase";
    Statement statement(statements, sql, sql);
    statement.Bind(1, table);
    if (!statement.Step())
        throw DatabaseError(ErrorKind::Sql, "The database has no table \"" + std::string(table) + "\".");
    return ToText(statement.Field(0));
}

void ReadFields(StatementCache& statements, TableInfo& info) {
    constexpr std::string_view sql = "select name, type, pk from pragma_table_info(?)";
    Statement statement(statements, sql, sql);
    statement.Bind(1, info.name);
    while (statement.Step()) {
        if (ToInt32(statement.Field(2)) > 0) info.identifier = info.fields.size();
        const std::string type = ToText(statement.Field(1));
        info.fields.push_back(
            {ToText(statement.Field(0)), DeclaredSize(type), text::LowerAscii(type).starts_with("text")});
    }
    if (info.identifier) info.indexes.push_back({"PrimaryKey", {*info.identifier}});
}

void ReadIndexes(StatementCache& statements, TableInfo& info) {
    constexpr std::string_view sql =
        "select l.name, i.name from pragma_index_list(?) l, pragma_index_info(l.name) i order by l.name, "
        "i.seqno";
    Statement statement(statements, sql, sql);
    statement.Bind(1, info.name);
    while (statement.Step()) {
        const std::string index = ToText(statement.Field(0));
        if (info.indexes.empty() || info.indexes.back().name != index) info.indexes.push_back({index, {}});
        info.indexes.back().fields.push_back(info.FieldPosition(ToText(statement.Field(1))));
    }
}

}  // namespace

std::size_t TableInfo::FieldPosition(std::string_view field) const {
    for (std::size_t i = 0; i < fields.size(); ++i)
        if (text::SameText(fields[i].name, field)) return i;
    throw DatabaseError(ErrorKind::Sql,
                        "The table " + name + " has no field \"" + std::string(field) + "\".");
}

const TableInfo::Index& TableInfo::IndexNamed(std::string_view index) const {
    for (const Index& candidate : indexes)
        if (text::SameText(candidate.name, index)) return candidate;
    throw DatabaseError(ErrorKind::Sql,
                        "The table " + name + " has no index \"" + std::string(index) + "\".");
}

TableInfo ReadTableInfo(StatementCache& statements, std::string_view table) {
    TableInfo info;
    info.name = ReadName(statements, table);
    ReadFields(statements, info);
    ReadIndexes(statements, info);
    return info;
}

}  // namespace tessel::db

#pragma once

#include <regex>

#include "platform/db/catalogue_text.h"
#include "platform/db/postgres_catalogue.h"
#include "platform/db/sqlite_catalogue.h"
#include "platform/text/utf8.h"
#include "sql_script/schema_reader.h"
#include "support/postgres_server.h"
#include "support/raw_sql.h"
#include "support/temporary_folder.h"
#include "workbench/load/type_map.h"

namespace tessel::test {

// What the schema database says, in the form in which a server's catalogue is read.
inline db::SourceCatalogue CatalogueOf(const sql_script::Schema& schema) {
    db::SourceCatalogue catalogue;
    for (const auto& table : schema.tables) {
        db::SourceTable source{.name = table.name, .comment = table.comment};
        for (const auto& column : table.columns)
            source.columns.push_back({column.name, sql_script::TypeText(column), column.isNullable,
                                      column.defaultValue, column.comment});
        for (const auto& index : table.indexes) {
            source.indexes.push_back({index.name, index.isUnique, index.isPrimary, {}, index.comment});
            for (const auto& part : index.parts)
                source.indexes.back().columns.push_back({table.columns[part.column].name, part.isDescending});
        }
        for (const auto& key : table.keys) {
            const auto& refTable = schema.tables[*key.refTable];
            source.keys.push_back({key.name, refTable.name, key.deletesCascade, {}, key.comment});
            for (const auto& [column, refColumn] : key.pairs)
                source.keys.back().pairs.push_back(
                    {table.columns[column].name, refTable.columns[refColumn].name});
        }
        catalogue.tables.push_back(std::move(source));
    }
    return catalogue;
}

// A server's way to make the database of a script, twice over, and to read it back; and what it does not
// keep.
struct Server {
    const char* dialect;
    bool keepsComments;
    std::vector<std::pair<const char*, const char*>> typeLosses;  // patterns and what they become
    db::SourceCatalogue (*make)(const std::string& script);
};

inline const Server sqliteServer{"sqlite", false, {}, [](const std::string& script) {
                                     const TemporaryFolder folder;
                                     RunRawSql(folder / "made.db", script);
                                     RunRawSql(folder / "made.db", script);
                                     return db::ReadSqliteCatalogue(folder / "made.db");
                                 }};
inline const Server postgresServer{"postgresql",
                                   true,
                                   {{"DECIMAL", "NUMERIC"},
                                    {"TINYINT", "SMALLINT"},
                                    {"FLOAT\\((1?\\d|2[0-4])\\)", "REAL"},
                                    {"FLOAT.*", "DOUBLE"},
                                    {"^(VAR)?BINARY.*", "LONGVARBINARY"}},
                                   [](const std::string& script) {
                                       auto& server = PostgresServer::Shared();
                                       const std::string database = server.MakeDatabase();
                                       server.Run(database, script);
                                       server.Run(database, script);
                                       return db::ReadPostgresCatalogue(server.Address(database)).catalogue;
                                   }};

// A line for each table, with the editor's types, without what the server does not keep, in an order of
// names.
class Comparable {
  public:
    explicit Comparable(const Server& server) : server_(server) {}

    db::Lines Lines(db::SourceCatalogue catalogue) const {
        for (auto& table : catalogue.tables) {
            for (auto& column : table.columns) Simplify(table, column);
            for (auto& index : table.indexes) Simplify(table, index);
            for (auto& key : table.keys) Simplify(table, key);
            if (!server_.keepsComments) table.comment.clear();
            std::ranges::sort(table.indexes, {},
                              [](const auto& index) { return std::pair(!index.isPrimary, index.name); });
            std::ranges::sort(table.keys, {}, &db::SourceKey::name);
        }
        std::ranges::sort(catalogue.tables, {}, &db::SourceTable::name);
        return Shown(catalogue);
    }

  private:
    void Simplify(const db::SourceTable&, db::SourceColumn& column) const {
        const auto type = workbench::MapType(column.type);
        sql_script::Column mapped;
        mapped.typeName = type.name;
        mapped.precision = type.precision;
        mapped.scale = type.scale;
        column.type = sql_script::TypeText(mapped);
        for (const auto& [pattern, replacement] : server_.typeLosses)
            column.type = std::regex_replace(column.type, std::regex(pattern), replacement);
        if (column.defaultValue) column.defaultValue = text::LowerAscii(*column.defaultValue);
        if (!server_.keepsComments) column.comment.clear();
    }
    void Simplify(const db::SourceTable& table, db::SourceIndex& index) const { SimplifyName(table, index); }
    void Simplify(const db::SourceTable& table, db::SourceKey& key) const {
        SimplifyName(table, key);
        std::ranges::sort(key.pairs, {}, &db::SourceKey::Pair::refColumn);
    }
    // Without the table's name, which stands before a name that is not the only one.
    template <typename Named>
    void SimplifyName(const db::SourceTable& table, Named& named) const {
        const std::string prefix = table.name + "_";
        if (named.name.starts_with(prefix)) named.name.erase(0, prefix.size());
        if (!server_.keepsComments) named.comment.clear();
    }

    const Server& server_;
};

}  // namespace tessel::test

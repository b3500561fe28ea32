#include "platform/db/postgres_catalogue.h"

#include <unordered_map>

#include "platform/db/default_text.h"
#include "platform/db/error.h"
#include "platform/db/postgres_connection.h"
#include "platform/db/postgres_default.h"
#include "platform/db/postgres_queries.h"

namespace tessel::db {
namespace {

constexpr int oldestVersion = 120000;

// What the server's letter for a rule of a foreign key stands for.
std::string RuleOf(const std::string& letter) {
    if (letter == "c") return "CASCADE";
    if (letter == "n") return "SET NULL";
    if (letter == "d") return "SET DEFAULT";
    return {};
}

class CatalogueReader {
  public:
    explicit CatalogueReader(const PostgresPlace& place) : connection_(place), schema_(place.schema) {
        if (connection_.ServerVersion() < oldestVersion)
            throw DatabaseError(ErrorKind::Sql,
                                "The server is older than PostgreSQL 12, and its catalogue cannot be read; "
                                "take a newer one.");
    }

    PostgresSource Read() {
        connection_.Run("begin transaction isolation level repeatable read read only");
        connection_.Run(postgres::settings, {schema_});
        FindSchema();
        ReadTables();
        ReadColumns();
        ReadIndexes();
        ReadKeys();
        connection_.Run("commit");
        std::string place = connection_.Place();
        if (schema_ != PostgresPlace().schema) place += " " + PostgresOption("schema", schema_);
        return {place, std::move(catalogue_)};
    }

  private:
    void FindSchema() {
        auto found = connection_.Run(postgres::schemaNamed, {schema_});
        if (found.Next()) {
            identifier_ = found.Text("oid");
            return;
        }
        auto others = connection_.Run(postgres::schemaNames);
        const std::string names = others.Next() ? others.Text("names") : "";
        throw DatabaseError(ErrorKind::Missing,
                            "The database \"" + connection_.DatabaseName() + "\" has no schema \"" + schema_ +
                                "\"; " + (names.empty() ? "it has none at all" : "it has " + names) + ".");
    }

    PostgresRows Rows(const char* sql) { return connection_.Run(sql, {identifier_}); }

    void Note(const std::string& what, const std::string& remark) {
        catalogue_.notes.push_back({what, remark});
    }

    // Nothing for a table that is left out.
    SourceTable* TableOf(const PostgresRows& row) {
        const auto place = places_.find(row.Text("tab"));
        return place == places_.end() ? nullptr : &catalogue_.tables[place->second];
    }

    void ReadTables() {
        for (auto row = Rows(postgres::tables); row.Next();) {
            const std::string name = row.Text("name");
            const std::string kind = row.Text("kind");
            if (kind == "f") {
                Note(name, "a foreign table is left out");
                continue;
            }
            if (kind == "p") Note(name, "it is partitioned, and is taken as one table");
            places_[row.Text("tab")] = catalogue_.tables.size();
            catalogue_.tables.push_back(
                {.name = name, .isView = kind == "v" || kind == "m", .comment = row.Text("comment")});
        }
    }

    void ReadColumns() {
        for (auto row = Rows(postgres::columns); row.Next();) {
            SourceTable* const table = TableOf(row);
            if (!table) continue;
            const std::string what = table->name + "." + row.Text("name");
            NoteColumn(what, row);
            table->columns.push_back({row.Text("name"), row.Text("type"), row.IsTrue("nullable"),
                                      DefaultOf(what, row), row.Text("comment")});
        }
    }

    void NoteColumn(const std::string& what, const PostgresRows& row) {
        if (!row.IsNull("domain"))
            Note(what, "the domain " + row.Text("domain") + " becomes the type under it, without its checks");
        if (!row.IsNull("enumeration"))
            Note(what, "the values of the enumeration " + row.Text("enumeration") + " are not taken");
        if (row.IsTrue("computed")) Note(what, "it is computed, and its expression is not taken");
        if (row.IsTrue("identity") || IsFromSequence(row.Text("expression")))
            Note(what, "its values come from a sequence, which is not taken");
    }

    std::optional<std::string> DefaultOf(const std::string& what, const PostgresRows& row) {
        const std::string expression = row.Text("expression");
        if (expression.empty() || row.IsTrue("computed") || IsFromSequence(expression)) return {};
        DefaultReading reading = PostgresDefault(expression, row.Text("type"));
        if (reading.isExpression) Note(what, expressionLeftOut);
        return std::move(reading.value);
    }

    void ReadIndexes() {
        SourceTable* table = nullptr;
        std::string last;
        for (auto row = Rows(postgres::indexes); row.Next();) {
            if (row.Text("index") != last) {
                if (table) FinishIndex(*table);
                table = TableOf(row);
                last = row.Text("index");
                if (table) BeginIndex(*table, row);
            }
            if (table) AddIndexColumn(table->indexes.back(), row);
        }
        if (table) FinishIndex(*table);
    }

    void BeginIndex(SourceTable& table, const PostgresRows& row) {
        const std::string name = row.Text("name");
        isLeftOut_ = row.IsTrue("exclusion");
        if (isLeftOut_) Note(name, "an exclusion is left out");
        SourceIndex index{.name = name,
                          .isUnique = row.IsTrue("unique"),
                          .isPrimary = row.IsTrue("primary"),
                          .comment = row.Text("comment")};
        if (!isLeftOut_) NoteIndex(index, row);
        table.indexes.push_back(std::move(index));
    }

    void NoteIndex(SourceIndex& index, const PostgresRows& row) {
        if (row.IsTrue("partial")) {
            Note(index.name, std::string("the condition of the index is not taken") +
                                 (index.isUnique ? ", so that it is no longer unique" : ""));
            index.isUnique = false;
        }
        if (row.IsTrue("including")) Note(index.name, "the columns that the index includes are not taken");
        if (row.Text("method") != "btree")
            Note(index.name, "its kind, " + row.Text("method") + ", is not taken");
    }

    void AddIndexColumn(SourceIndex& index, const PostgresRows& row) {
        if (row.IsNull("column") && !isLeftOut_) {
            Note(index.name, "an index on an expression is left out");
            isLeftOut_ = true;
        }
        if (row.IsTrue("turned") && !isLeftOut_)
            Note(index.name, "the place of nulls in the order of " + row.Text("column") + " is not taken");
        index.columns.push_back({row.Text("column"), row.IsTrue("descending")});
    }

    void FinishIndex(SourceTable& table) const {
        if (isLeftOut_) table.indexes.pop_back();
    }

    void ReadKeys() {
        std::string last;
        for (auto row = Rows(postgres::keys); row.Next();) {
            SourceTable* const table = TableOf(row);
            if (!table) continue;
            if (row.Text("key") != last) BeginKey(*table, row);
            last = row.Text("key");
            table->keys.back().pairs.push_back({row.Text("column"), row.Text("refcolumn")});
        }
    }

    void BeginKey(SourceTable& table, const PostgresRows& row) {
        const std::string onDelete = RuleOf(row.Text("ondelete"));
        table.keys.push_back({.name = row.Text("name"),
                              .refTable = row.Text("reftab"),
                              .deletesCascade = onDelete == "CASCADE",
                              .comment = row.Text("comment")});
        const std::string key = table.name + " -> " + table.keys.back().refTable;
        if (onDelete.starts_with("SET ")) Note(key, "ON DELETE " + onDelete + " becomes RESTRICT");
        const std::string onUpdate = RuleOf(row.Text("onupdate"));
        if (!onUpdate.empty()) Note(key, "ON UPDATE " + onUpdate + " is not taken");
    }

    PostgresConnection connection_;
    const std::string schema_;
    std::string identifier_;  // the schema's
    SourceCatalogue catalogue_;
    std::unordered_map<std::string, std::size_t> places_;  // of the tables, by their identifier
    bool isLeftOut_ = false;                               // the index being read
};

}  // namespace

PostgresSource ReadPostgresCatalogue(const std::string& connection) {
    return CatalogueReader(ReadPostgresPlace(connection)).Read();
}

}  // namespace tessel::db

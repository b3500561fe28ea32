#include "platform/db/sqlite_catalogue.h"

#include <sqlite3.h>

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <unordered_map>

#include "platform/db/constraint_names.h"
#include "platform/db/default_text.h"
#include "platform/db/engine.h"
#include "platform/db/engine_error.h"
#include "platform/db/open_checks.h"
#include "platform/db/sql_characters.h"
#include "platform/text/utf8.h"
#include "tessel/convert.h"

namespace tessel::db {
namespace {

Connection OpenForReading(const std::string& path) {
    RefuseMissingFile(path);
    std::error_code error;
    if (std::filesystem::file_size(path, error) == 0 && !error)
        throw DatabaseError(ErrorKind::Empty, "The file \"" + path + "\" is empty; choose a database.");
    sqlite3* opened = nullptr;
    const std::string absolute = std::filesystem::absolute(path).string();
    const int code = sqlite3_open_v2(absolute.c_str(), &opened, SQLITE_OPEN_READONLY, nullptr);
    Connection connection(opened);
    if (code != SQLITE_OK) ThrowOpenError(opened, path, "make the file readable");
    sqlite3_extended_result_codes(opened, 1);
    sqlite3_busy_timeout(opened, 5000);
    sqlite3_db_config(opened, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    return connection;
}

// What stands between the quotes of a text constant; nothing when the expression is none.
std::optional<std::string> TextConstant(std::string_view expression) {
    // The engine takes double quotes around a default for those of a text, too.
    const char quote = expression.empty() ? '\0' : expression.front();
    if ((quote != '\'' && quote != '"') || expression.size() < 2 || expression.back() != quote) return {};
    std::string text;
    for (std::size_t i = 1; i + 1 < expression.size(); ++i) {
        if (expression[i] == quote && expression[++i] != quote) return {};
        text += expression[i];
    }
    return text;
}

// Whether it is one word, such as TRUE; any that is no word of SQL is a text.
bool IsWord(std::string_view expression) {
    return IsWordStart(expression.front()) && std::ranges::all_of(expression, IsWordPart);
}

bool IsNumber(std::string_view expression) {
    if (expression.starts_with('-') || expression.starts_with('+')) expression.remove_prefix(1);
    expression = text::Trim(expression);
    const bool isHex = expression.starts_with("0x") || expression.starts_with("0X");
    if (isHex) expression.remove_prefix(2);
    const char* const end = expression.data() + expression.size();
    double number = 0;
    const auto format = isHex ? std::chars_format::hex : std::chars_format::general;
    const bool isStart = !expression.empty() && expression.front() != '-' && !IsWord(expression);
    return (isHex || isStart) && std::from_chars(expression.data(), end, number, format).ptr == end;
}

// The digits of a constant such as x'CAFE'.
std::optional<std::string_view> BinaryDigits(std::string_view expression) {
    if (!expression.starts_with("x'") && !expression.starts_with("X'")) return {};
    return expression.substr(2, expression.find('\'', 2) - 2);
}

// A default as a person would type it. NULL is none at all.
DefaultReading DefaultOf(const Value& expression) {
    if (expression.IsNull()) return {};
    std::string text = ToText(expression);
    if (text::SameText(text, "NULL") || text.empty()) return {};
    if (const auto constant = TextConstant(text)) return {TextDefault(*constant)};
    if (const auto digits = BinaryDigits(text); digits && digits->size() + 3 == text.size())
        return {BinaryDefault(*digits)};
    if (!IsNumber(text) && !IsWord(text)) return {{}, true};
    return {std::move(text)};
}

class CatalogueReader {
  public:
    explicit CatalogueReader(const std::string& path)
        : connection_(OpenForReading(path)), statements_(connection_.get()) {}

    SourceCatalogue Read() {
        Statement(statements_, "begin", "begin").Step();
        ReadSpecialTables();
        ReadTables();
        CompleteKeys();
        return std::move(catalogue_);
    }

  private:
    template <typename Row>
    void ForEach(std::string_view sql, const std::string& parameter, Row&& row) {
        Statement statement(statements_, sql, sql);
        if (!parameter.empty()) statement.Bind(1, parameter);
        while (statement.Step()) row(statement);
    }

    void Note(const std::string& what, const std::string& remark) {
        catalogue_.notes.push_back({what, remark});
    }

    void ReadSpecialTables() {
        ForEach("select name, type from pragma_table_list where type in ('virtual', 'shadow')", "",
                [&](const Statement& row) { special_[ToText(row.Field(0))] = ToText(row.Field(1)); });
    }

    void ReadTables() {
        ForEach(
            "select name, type, sql from sqlite_schema where type in ('table', 'view') and name not like "
            "'sqlite\\_%' escape '\\' order by rowid",
            "", [&](const Statement& row) {
                const std::string name = ToText(row.Field(0));
                const auto special = special_.find(name);
                if (special == special_.end())
                    ReadTable(name, row.Field(1) == Value("view"), ToText(row.Field(2)));
                else if (special->second == "virtual")
                    Note(name, "a virtual table is left out");
            });
    }

    void ReadTable(const std::string& name, bool isView, const std::string& sql) {
        SourceTable table{.name = name, .isView = isView};
        try {
            ReadColumns(table);
        } catch (const DatabaseError& error) {
            if (!isView) throw;
            return Note(name, std::string("the view is left out, for it does not work: ") +
                                  sqlite3_errmsg(connection_.get()));
        }
        if (!isView) {
            const ConstraintNames names = ReadConstraintNames(sql);
            AddPrimaryKey(table, names);
            ReadIndexes(table, names);
            ReadKeys(table, names);
        }
        catalogue_.tables.push_back(std::move(table));
    }

    void ReadColumns(SourceTable& table) {
        primaryKey_.clear();
        ForEach(
            "select name, type, \"notnull\", dflt_value, pk, hidden from pragma_table_xinfo(?) where hidden "
            "<> 1",
            table.name, [&](const Statement& row) {
                const std::string name = ToText(row.Field(0));
                const auto place = static_cast<std::size_t>(ToInt32(row.Field(4)));
                if (place > primaryKey_.size()) primaryKey_.resize(place);
                if (place > 0) primaryKey_[place - 1] = name;
                const std::string what = table.name + "." + name;
                if (ToInt32(row.Field(5)) > 1) Note(what, "it is computed, and its expression is not taken");
                DefaultReading defaultValue = DefaultOf(row.Field(3));
                if (defaultValue.isExpression) Note(what, expressionLeftOut);
                table.columns.push_back({name, ToText(row.Field(1)), place == 0 && ToInt32(row.Field(2)) == 0,
                                         std::move(defaultValue.value)});
            });
    }

    void AddPrimaryKey(SourceTable& table, const ConstraintNames& names) {
        if (primaryKey_.empty()) return;
        SourceIndex index{.name = names.primaryKey, .isUnique = true, .isPrimary = true};
        for (const auto& column : primaryKey_) index.columns.push_back({column});
        table.indexes.push_back(std::move(index));
    }

    void ReadIndexes(SourceTable& table, const ConstraintNames& names) {
        ForEach("select name, \"unique\", origin, partial from pragma_index_list(?) order by seq desc",
                table.name, [&](const Statement& row) {
                    const std::string name = ToText(row.Field(0));
                    SourceIndex index{.name = name, .isUnique = ToInt32(row.Field(1)) != 0};
                    if (!ReadIndexColumns(index)) return Note(name, "an index on an expression is left out");
                    if (row.Field(2) == Value("pk")) {
                        table.indexes.front().columns = std::move(index.columns);
                        return;
                    }
                    if (row.Field(2) == Value("u")) index.name = NameOfUnique(index, names);
                    if (ToInt32(row.Field(3)) != 0) TakeWithoutCondition(index);
                    table.indexes.push_back(std::move(index));
                });
    }

    // False when it has a column that is an expression.
    bool ReadIndexColumns(SourceIndex& index) {
        bool plain = true;
        ForEach("select name, \"desc\" from pragma_index_xinfo(?) where key = 1 order by seqno", index.name,
                [&](const Statement& row) {
                    plain = plain && !row.Field(0).IsNull();
                    index.columns.push_back({ToText(row.Field(0).IsNull() ? Value("") : row.Field(0)),
                                             ToInt32(row.Field(1)) != 0});
                });
        return plain;
    }

    void TakeWithoutCondition(SourceIndex& index) {
        Note(index.name, std::string("the condition of the index is not taken") +
                             (index.isUnique ? ", so that it is no longer unique" : ""));
        index.isUnique = false;
    }

    static std::string NameOfUnique(const SourceIndex& index, const ConstraintNames& names) {
        const auto same = [&](const ConstraintNames::Unique& unique) {
            return std::ranges::equal(unique.columns, index.columns,
                                      [](const std::string& name, const SourceIndex::Column& column) {
                                          return text::SameText(name, column.name);
                                      });
        };
        const auto found = std::ranges::find_if(names.uniques, same);
        return found == names.uniques.end() ? std::string() : found->name;
    }

    void ReadKeys(SourceTable& table, const ConstraintNames& names) {
        std::int32_t last = -1;
        ForEach(
            "select id, \"table\", \"from\", \"to\", on_delete, on_update from pragma_foreign_key_list(?) "
            "order by id desc, seq",
            table.name, [&](const Statement& row) {
                if (table.keys.empty() || ToInt32(row.Field(0)) != last) BeginKey(table, row);
                last = ToInt32(row.Field(0));
                table.keys.back().pairs.push_back(
                    {ToText(row.Field(2)), row.Field(3).IsNull() ? "" : ToText(row.Field(3))});
            });
        if (names.foreignKeys.size() != table.keys.size()) return;
        for (std::size_t i = 0; i < table.keys.size(); ++i) table.keys[i].name = names.foreignKeys[i];
    }

    void BeginKey(SourceTable& table, const Statement& row) {
        const std::string onDelete = ToText(row.Field(4));
        table.keys.push_back(
            {.name = "", .refTable = ToText(row.Field(1)), .deletesCascade = onDelete == "CASCADE"});
        const std::string key = table.name + " -> " + table.keys.back().refTable;
        if (onDelete.starts_with("SET ")) Note(key, "ON DELETE " + onDelete + " becomes RESTRICT");
        const std::string onUpdate = ToText(row.Field(5));
        if (onUpdate != "NO ACTION" && onUpdate != "RESTRICT")
            Note(key, "ON UPDATE " + onUpdate + " is not taken");
    }

    // Keys that name no columns of the table that they refer to mean its primary key.
    void CompleteKeys() {
        std::unordered_map<std::string, const SourceTable*> byName;
        for (const auto& table : catalogue_.tables) byName[text::LowerAscii(table.name)] = &table;
        for (auto& table : catalogue_.tables) {
            for (auto& key : table.keys) {
                const auto found = byName.find(text::LowerAscii(key.refTable));
                if (found != byName.end()) CompleteKey(key, *found->second);
            }
        }
    }

    static void CompleteKey(SourceKey& key, const SourceTable& refTable) {
        if (refTable.indexes.empty() || !refTable.indexes.front().isPrimary) return;
        const auto& primary = refTable.indexes.front().columns;
        if (primary.size() != key.pairs.size()) return;
        for (std::size_t i = 0; i < primary.size(); ++i)
            if (key.pairs[i].refColumn.empty()) key.pairs[i].refColumn = primary[i].name;
    }

    Connection connection_;
    StatementCache statements_;
    SourceCatalogue catalogue_;
    std::unordered_map<std::string, std::string> special_;  // the kind of each virtual and shadow table
    std::vector<std::string> primaryKey_;                   // of the table being read
};

}  // namespace

SourceCatalogue ReadSqliteCatalogue(const std::string& path) { return CatalogueReader(path).Read(); }

}  // namespace tessel::db

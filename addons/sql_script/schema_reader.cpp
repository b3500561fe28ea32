#include "sql_script/schema_reader.h"

#include <algorithm>
#include <set>
#include <unordered_map>

#include "sql_script/text_tools.h"
#include "tessel/convert.h"

namespace tessel::sql_script {

namespace {

std::string TextOf(const Value& value) { return value.IsNull() ? std::string() : ToText(value); }

class Row {
  public:
    explicit Row(const Collection& fields) : fields_(fields) {}
    [[nodiscard]] std::int32_t Number(std::string_view field) const {
        const Value& value = fields_.At(field);
        return value.IsNull() ? 0 : ToInt32(value);
    }
    [[nodiscard]] std::string Text(std::string_view field) const { return TextOf(fields_.At(field)); }
    [[nodiscard]] bool IsTrue(std::string_view field) const { return Number(field) != 0; }
    [[nodiscard]] bool IsNull(std::string_view field) const { return fields_.At(field).IsNull(); }

  private:
    const Collection& fields_;
};

class Reader {
  public:
    explicit Reader(Object& database) : database_(database) {}

    Schema Read() {
        ReadTypes();
        ReadTables();
        ReadColumns();
        ReadIndexes();
        ReadIndexColumns();
        ReadKeys();
        ReadKeyColumns();
        for (auto& table : schema_.tables)
            for (auto& key : table.keys) Finish(key);
        return std::move(schema_);
    }

  private:
    // The table and the place in one of its lists that an identifier stands for.
    struct Place {
        std::size_t table;
        std::size_t item;
    };
    using Places = std::unordered_map<std::int32_t, Place>;

    template <typename Take>
    void ForEach(const char* sql, Take&& take) {
        Arguments arguments{sql};
        const Value result = database_.Call("Select", CallKind::Method, arguments);
        for (const auto& item : **result.As<std::shared_ptr<Collection>>())
            take(Row(**item.value.As<std::shared_ptr<Collection>>()));
    }

    static const Place* Find(const Places& places, std::int32_t identifier) {
        const auto found = places.find(identifier);
        return found == places.end() ? nullptr : &found->second;
    }

    void ReadTypes() {
        ForEach("select TypeID, SourceTypeName from SQLTypes",
                [&](const Row& row) { types_[row.Number("TypeID")] = row.Text("SourceTypeName"); });
    }

    void ReadTables() {
        ForEach("select TabID, TableName, StorageOption, Comments, PrimaryIndexID from Tables order by TabID",
                [&](const Row& row) {
                    tables_[row.Number("TabID")] = schema_.tables.size();
                    primary_.emplace(row.Number("TabID"), row.Number("PrimaryIndexID"));
                    schema_.tables.push_back({.name = row.Text("TableName"),
                                              .comment = row.Text("Comments"),
                                              .storage = row.Text("StorageOption"),
                                              .columns = {},
                                              .indexes = {},
                                              .keys = {}});
                });
    }

    Table* TableOf(const Row& row, const char* field) {
        const auto found = tables_.find(row.Number(field));
        return found == tables_.end() ? nullptr : &schema_.tables[found->second];
    }

    // Where the next item of the table's list will stand.
    template <typename List>
    [[nodiscard]] Place Next(const Table& table, const List& list) const {
        return {static_cast<std::size_t>(&table - schema_.tables.data()), list.size()};
    }

    void ReadColumns() {
        ForEach(
            "select ColumnID, TabID, ColumnName, TypeID, Precision, Scale, IsNullable, Comments, "
            "DefaultValue from Columns order by TabID, Position, ColumnID",
            [&](const Row& row) {
                Table* table = TableOf(row, "TabID");
                if (!table) return;
                columns_[row.Number("ColumnID")] = Next(*table, table->columns);
                Column column{.name = row.Text("ColumnName"),
                              .typeName = types_[row.Number("TypeID")],
                              .precision = row.Number("Precision"),
                              .scale = row.Number("Scale"),
                              .isNullable = row.IsTrue("IsNullable"),
                              .comment = row.Text("Comments"),
                              .defaultValue = {}};
                if (!row.IsNull("DefaultValue")) column.defaultValue = row.Text("DefaultValue");
                table->columns.push_back(std::move(column));
            });
    }

    void ReadIndexes() {
        ForEach(
            "select IndexID, TabID, IndexName, [Unique] as IsUnique, Comment from Indices order by TabID, "
            "IndexID",
            [&](const Row& row) {
                Table* table = TableOf(row, "TabID");
                if (!table) return;
                indexes_[row.Number("IndexID")] = Next(*table, table->indexes);
                const bool isPrimary = primary_.contains({row.Number("TabID"), row.Number("IndexID")});
                table->indexes.push_back({.name = row.Text("IndexName"),
                                          .isUnique = isPrimary || row.IsTrue("IsUnique"),
                                          .isPrimary = isPrimary,
                                          .comment = row.Text("Comment"),
                                          .parts = {}});
            });
    }

    void ReadIndexColumns() {
        ForEach("select IndexID, ColumnID, Direction from IndexColumns order by IndexID, Position, ColumnID",
                [&](const Row& row) {
                    const Place* place = Find(indexes_, row.Number("IndexID"));
                    if (!place) return;
                    Index& index = schema_.tables[place->table].indexes[place->item];
                    const Place* column = Find(columns_, row.Number("ColumnID"));
                    if (column && column->table == place->table)
                        index.parts.push_back({column->item, UpperAscii(row.Text("Direction")) == "D"});
                    else
                        index.isBroken = true;
                });
    }

    void ReadKeys() {
        ForEach(
            "select KeyID, TabID, RefTabId, KeyName, HowDelete, Comment from ForeignKeys order by TabID, "
            "KeyID",
            [&](const Row& row) {
                Table* table = TableOf(row, "TabID");
                if (!table) return;
                keys_[row.Number("KeyID")] = Next(*table, table->keys);
                Key key{.name = row.Text("KeyName"),
                        .refTable = {},
                        .deletesCascade = UpperAscii(row.Text("HowDelete")) == "C",
                        .comment = row.Text("Comment"),
                        .pairs = {}};
                if (const Table* refTable = TableOf(row, "RefTabId"))
                    key.refTable = static_cast<std::size_t>(refTable - schema_.tables.data());
                key.isBroken = !key.refTable;
                table->keys.push_back(std::move(key));
            });
    }

    void ReadKeyColumns() {
        ForEach("select KeyID, ColumnID, RefColumnID from ForeignKeyColumns", [&](const Row& row) {
            const Place* place = Find(keys_, row.Number("KeyID"));
            if (!place) return;
            Key& key = schema_.tables[place->table].keys[place->item];
            const Place* column = Find(columns_, row.Number("ColumnID"));
            const Place* refColumn = Find(columns_, row.Number("RefColumnID"));
            if (column && refColumn && column->table == place->table && refColumn->table == key.refTable)
                key.pairs.emplace_back(column->item, refColumn->item);
            else
                key.isBroken = true;
        });
    }

    // Puts the pairs in order. A column that stands twice makes no key.
    static void Finish(Key& key) {
        std::ranges::sort(key.pairs, {},
                          [](const ColumnPair& pair) { return std::pair(pair.second, pair.first); });
        std::set<std::size_t> columns;
        std::set<std::size_t> refColumns;
        for (const auto& [column, refColumn] : key.pairs)
            if (!columns.insert(column).second || !refColumns.insert(refColumn).second) key.isBroken = true;
    }

    Object& database_;
    Schema schema_;
    std::unordered_map<std::int32_t, std::string> types_;
    std::unordered_map<std::int32_t, std::size_t> tables_;
    std::set<std::pair<std::int32_t, std::int32_t>> primary_;  // tables and the indexes that they name
    Places columns_;
    Places indexes_;
    Places keys_;
};

}  // namespace

Schema ReadSchema(Object& database) { return Reader(database).Read(); }

std::string TypeText(const Column& column) {
    if (column.typeName.empty()) return "?";
    if (column.precision == 0) return column.typeName;
    const std::string scale = column.scale == 0 ? "" : "," + std::to_string(column.scale);
    return column.typeName + "(" + std::to_string(column.precision) + scale + ")";
}

}  // namespace tessel::sql_script

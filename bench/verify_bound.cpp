#include "verify_bound.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace tessel::bench {

namespace {

struct Row {
    int owner;  // what the scan is ordered by
    int first;
    int second;
};
struct Column {
    int type;
    int precision;
    bool isNullable;

    // The types that stand in a generated schema, and whether they take a precision.
    bool Fits(const Column& other) const {
        const bool isSized = type == 1 || type == 3 || type == 12;
        return type == other.type && (!isSized || precision == other.precision);
    }
};

// An ordered scan of a whole table: every field of each row is taken over, as a verification takes it over.
class Scan {
  public:
    Scan(sqlite3* connection, const std::string& table, const std::string& order) {
        const std::string sql = "select * from " + table + " order by " + order;
        if (sqlite3_prepare_v2(connection, sql.c_str(), -1, &statement_, nullptr) != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(connection));
        fields_.resize(static_cast<std::size_t>(sqlite3_column_count(statement_)));
    }
    ~Scan() { sqlite3_finalize(statement_); }
    Scan(const Scan&) = delete;
    Scan& operator=(const Scan&) = delete;

    bool Next() {
        if (sqlite3_step(statement_) != SQLITE_ROW) return false;
        for (std::size_t i = 0; i < fields_.size(); ++i) Take(static_cast<int>(i), fields_[i]);
        return true;
    }
    [[nodiscard]] int Integer(std::size_t field) const { return fields_[field].integer; }
    [[nodiscard]] bool IsEmpty(std::size_t field) const { return fields_[field].text.empty(); }

  private:
    struct Field {
        int integer = 0;
        std::string text;
    };
    void Take(int position, Field& field) {
        if (sqlite3_column_type(statement_, position) == SQLITE_INTEGER)
            field.integer = sqlite3_column_int(statement_, position);
        else if (const auto* text = sqlite3_column_text(statement_, position))
            field.text.assign(reinterpret_cast<const char*>(text),
                              static_cast<std::size_t>(sqlite3_column_bytes(statement_, position)));
        else
            field.text.clear();
    }

    sqlite3_stmt* statement_ = nullptr;
    std::vector<Field> fields_;
};

// The rows of a table: the field `owner`, which orders them, and two others, each by its position.
std::vector<Row> ReadRows(sqlite3* connection, const std::string& table, const std::string& order,
                          std::array<std::size_t, 3> positions) {
    std::vector<Row> rows;
    for (Scan scan(connection, table, order); scan.Next();)
        rows.push_back({scan.Integer(positions[0]), scan.Integer(positions[1]), scan.Integer(positions[2])});
    return rows;
}

auto RowsOf(const std::vector<Row>& rows, int owner) {
    return std::ranges::equal_range(rows, owner, {}, &Row::owner);
}

struct Schema {
    std::vector<Column> columns{};  // by ColumnID
    std::vector<Row> indexes;       // TabID, IndexID, Unique
    std::vector<Row> indexColumns;  // IndexID, ColumnID
    std::vector<Row> keys;          // TabID, KeyID, RefTabId
    std::vector<Row> keyColumns;    // KeyID, ColumnID, RefColumnID

    explicit Schema(sqlite3* connection)
        : indexes(ReadRows(connection, "Indices", "TabID", {1, 0, 3})),
          indexColumns(ReadRows(connection, "IndexColumns", "IndexID", {0, 1, 2})),
          keys(ReadRows(connection, "ForeignKeys", "TabID", {1, 0, 2})),
          keyColumns(ReadRows(connection, "ForeignKeyColumns", "KeyID", {0, 1, 2})) {
        ReadColumns(connection);
    }

    void ReadColumns(sqlite3* connection) {
        for (Scan scan(connection, "Columns", "TabID"); scan.Next();) {
            const auto columnID = static_cast<std::size_t>(scan.Integer(0));
            if (columnID >= columns.size()) columns.resize(columnID * 2);
            columns[columnID] = {scan.Integer(4), scan.Integer(5), scan.Integer(7) != 0};
        }
    }

    const Column& ColumnOf(int columnID) const { return columns[static_cast<std::size_t>(columnID)]; }

    bool Matches(const Row& index, const Row& key) const {
        const auto indexed = RowsOf(indexColumns, index.first);
        const auto referring = RowsOf(keyColumns, key.first);
        return std::ranges::equal(indexed, referring, {}, &Row::first, &Row::second);
    }

    int FindingsOfIndex(const Row& index) const {
        const auto indexed = RowsOf(indexColumns, index.first);
        if (indexed.empty()) return 1;
        return index.second == 0 ? 0
                                 : static_cast<int>(std::ranges::count_if(indexed, [this](const Row& row) {
                                       return ColumnOf(row.first).isNullable;
                                   }));
    }

    int FindingsOfKey(const Row& key) const {
        const auto referred = RowsOf(indexes, key.second);
        if (std::ranges::none_of(referred,
                                 [&](const Row& index) { return index.second != 0 && Matches(index, key); }))
            return 1;
        return static_cast<int>(std::ranges::count_if(RowsOf(keyColumns, key.first), [this](const Row& pair) {
            return !ColumnOf(pair.first).Fits(ColumnOf(pair.second));
        }));
    }
};

int Count(sqlite3* connection) {
    const Schema schema(connection);
    int findings = 0;
    for (Scan tables(connection, "Tables", "TabID"); tables.Next();) {
        const int tabID = tables.Integer(0);
        if (tables.IsEmpty(1)) ++findings;
        for (const Row& index : RowsOf(schema.indexes, tabID)) findings += schema.FindingsOfIndex(index);
        for (const Row& key : RowsOf(schema.keys, tabID)) findings += schema.FindingsOfKey(key);
    }
    return findings;
}

}  // namespace

int CountFindings(const std::string& file) {
    sqlite3* opened = nullptr;
    const int code = sqlite3_open(file.c_str(), &opened);
    const std::unique_ptr<sqlite3, int (*)(sqlite3*)> connection(opened, sqlite3_close);
    if (code != SQLITE_OK) throw std::runtime_error(sqlite3_errmsg(opened));
    return Count(opened);
}

}  // namespace tessel::bench

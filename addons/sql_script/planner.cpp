#include "sql_script/planner.h"

#include <algorithm>
#include <set>

#include "sql_script/key_planner.h"
#include "sql_script/literal.h"
#include "sql_script/server_names.h"
#include "sql_script/table_order.h"
#include "sql_script/text_tools.h"
#include "sql_script/type_kind.h"

namespace tessel::sql_script {

namespace {

constexpr std::size_t bytesOfCharacter = 4;
constexpr std::size_t bytesOfOther = 12;  // more than any type without a length takes

bool IsLineEnd(char c) { return c == '\n' || c == '\r'; }

// Plans one table, its keys aside.
class TablePlanner {
  public:
    TablePlanner(const Dialect& dialect, const TypeTable& types, const Table& table, const TableNames& names)
        : dialect_(dialect), types_(types), table_(table), names_(names) {}

    ServerTable Plan() {
        planned_.name = names_.table;
        planned_.storage = table_.storage;
        if (names_.table != table_.name) RemarkName(table_.name, names_.table);
        if (!TakesColumns()) {
            planned_.isLeftOut = true;
            return std::move(planned_);
        }
        planned_.comment = Cut(table_.name, table_.comment, dialect_.longestTableComment);
        for (std::size_t i = 0; i < table_.columns.size(); ++i) PlanColumn(i);
        if (dialect_.longestRow != 0) ShortenRow();
        for (std::size_t i = 0; i < table_.columns.size(); ++i) PlanDefault(i);
        for (std::size_t i = 0; i < table_.indexes.size(); ++i) PlanIndex(i);
        return std::move(planned_);
    }

  private:
    void Remark(Text text, std::vector<std::string> parameters) {
        for (auto& parameter : parameters) std::ranges::replace_if(parameter, IsLineEnd, ' ');
        planned_.remarks.push_back({text, std::move(parameters)});
    }
    void RemarkName(const std::string& what, const std::string& name) {
        Remark(Text::NameChanged, {what, dialect_.caption, name});
    }
    [[nodiscard]] std::string In(const std::string& name) const { return table_.name + "." + name; }

    bool TakesColumns() {
        const std::size_t count = table_.columns.size();
        if (count == 0 && !dialect_.takesEmptyTables) Remark(Text::EmptyTable, {table_.name});
        if (count > dialect_.mostColumns)
            Remark(Text::TooManyColumns,
                   {table_.name, dialect_.caption, std::to_string(dialect_.mostColumns)});
        return count <= dialect_.mostColumns && (count > 0 || dialect_.takesEmptyTables);
    }

    std::string Cut(const std::string& what, const std::string& comment, std::size_t longest) {
        if (longest == 0 || CharacterCount(comment) <= longest) return comment;
        Remark(Text::CommentCut, {what, dialect_.caption, std::to_string(longest)});
        return std::string(LeftCharacters(comment, longest));
    }

    void PlanColumn(std::size_t place) {
        const Column& column = table_.columns[place];
        const std::string what = In(column.name);
        if (names_.columns[place] != column.name) RemarkName(what, names_.columns[place]);
        auto type = types_.TypeFor(column);
        if (!type) {
            type = types_.OtherType();
            Remark(Text::NoType, {what, TypeText(column), *type});
        }
        planned_.columns.push_back({.name = names_.columns[place],
                                    .type = *type,
                                    .defaultValue = {},
                                    .isNullable = column.isNullable,
                                    .comment = Cut(what, column.comment, dialect_.longestComment)});
    }

    // At most, as the server counts.
    [[nodiscard]] std::size_t BytesOf(std::size_t place) const {
        const Column& column = table_.columns[place];
        const auto length = static_cast<std::size_t>(std::max(column.precision, 0));
        if (IsLargeType(dialect_, planned_.columns[place].type) || length == 0) return bytesOfOther;
        switch (KindOf(column.typeName)) {
            case TypeKind::Text:
                return length * bytesOfCharacter + 3;
            case TypeKind::Binary:
                return length + 3;
            default:
                return bytesOfOther;
        }
    }

    // Gives the longest columns that nothing refers to the type without a length until the rows are short
    // enough.
    void ShortenRow() {
        std::vector<std::size_t> places;
        std::size_t bytes = 0;
        for (std::size_t i = 0; i < table_.columns.size(); ++i) {
            bytes += BytesOf(i);
            if (BytesOf(i) > bytesOfOther && !IsJoined(i)) places.push_back(i);
        }
        std::ranges::stable_sort(places, std::greater<>(), [&](std::size_t i) { return BytesOf(i); });
        for (const std::size_t place : places) {
            if (bytes <= dialect_.longestRow) return;
            bytes -= BytesOf(place) - bytesOfOther;
            MakeLong(place);
        }
        if (bytes > dialect_.longestRow)
            Remark(Text::RowTooLong, {table_.name, dialect_.caption, std::to_string(dialect_.longestRow)});
    }

    void MakeLong(std::size_t place) {
        const Column& column = table_.columns[place];
        Column longColumn;
        longColumn.typeName = KindOf(column.typeName) == TypeKind::Binary ? "LONGVARBINARY" : "LONGVARCHAR";
        const std::string type = types_.TypeFor(longColumn).value_or(types_.OtherType());
        Remark(Text::LongType, {In(column.name), planned_.columns[place].type, dialect_.caption, type});
        planned_.columns[place].type = type;
    }

    // Whether an index or a key has the column.
    [[nodiscard]] bool IsJoined(std::size_t place) const {
        const auto inIndex = [&](const Index& index) {
            return std::ranges::count(index.parts, place, &IndexPart::column) > 0;
        };
        const auto inKey = [&](const Key& key) {
            return std::ranges::count(key.pairs, place, &ColumnPair::first) > 0;
        };
        return std::ranges::any_of(table_.indexes, inIndex) || std::ranges::any_of(table_.keys, inKey);
    }

    void PlanDefault(std::size_t place) {
        const Column& column = table_.columns[place];
        ServerColumn& planned = planned_.columns[place];
        const auto literal = DefaultLiteral(dialect_, column, planned.type);
        if (!literal) Remark(Text::WrongDefault, {In(column.name), *column.defaultValue, TypeText(column)});
        planned.defaultValue = literal.value_or("");
    }

    void PlanIndex(std::size_t place) {
        const Index& index = table_.indexes[place];
        const std::string what = In(index.name);
        if (!TakesIndex(index, what)) return;
        ServerIndex planned{.name = names_.indexes[place],
                            .isUnique = index.isUnique,
                            .isPrimary = index.isPrimary,
                            .parts = index.parts,
                            .comment = Cut(what, index.comment, dialect_.longestComment)};
        if (!index.isPrimary) {
            planned_.indexes.push_back(std::move(planned));
            return;
        }
        FitPrimary(planned, what);
        planned_.indexes.insert(planned_.indexes.begin(), std::move(planned));
    }

    bool TakesIndex(const Index& index, const std::string& what) {
        std::set<std::size_t> columns;
        std::size_t bytes = 0;
        bool isLarge = index.parts.size() > dialect_.mostIndexColumns;
        for (const auto& part : index.parts) {
            columns.insert(part.column);
            bytes += BytesOf(part.column);
            isLarge = isLarge || IsLargeType(dialect_, planned_.columns[part.column].type);
        }
        isLarge = isLarge || (dialect_.longestIndex != 0 && bytes > dialect_.longestIndex);
        if (index.isBroken || columns.size() < index.parts.size())
            Remark(Text::BrokenIndex, {what});
        else if (columns.empty())
            Remark(Text::EmptyIndex, {what});
        else if (isLarge)
            Remark(Text::IndexTooLarge, {what, dialect_.caption});
        else
            return true;
        return false;
    }

    void FitPrimary(ServerIndex& primary, const std::string& what) {
        bool isDescending = false;
        for (auto& part : primary.parts) {
            ServerColumn& column = planned_.columns[part.column];
            if (column.isNullable) Remark(Text::PrimaryNotNull, {In(table_.columns[part.column].name)});
            column.isNullable = false;
            isDescending = isDescending || part.isDescending;
            part.isDescending = part.isDescending && dialect_.directsPrimary;
        }
        if (isDescending && !dialect_.directsPrimary)
            Remark(Text::PrimaryAscending, {what, dialect_.caption});
    }

    const Dialect& dialect_;
    const TypeTable& types_;
    const Table& table_;
    const TableNames& names_;
    ServerTable planned_;
};

std::vector<std::size_t> OrderOf(const Schema& schema) {
    std::vector<std::vector<std::size_t>> references(schema.tables.size());
    for (std::size_t i = 0; i < references.size(); ++i)
        for (const auto& key : schema.tables[i].keys)
            if (key.refTable) references[i].push_back(*key.refTable);
    return DependencyOrder(references);
}

}  // namespace

ServerSchema PlanSchema(const Dialect& dialect, const TypeTable& types, const Schema& schema) {
    const auto names = NameForServer(dialect, schema);
    ServerSchema planned{.name = schema.name, .tables = {}, .order = OrderOf(schema)};
    for (std::size_t i = 0; i < schema.tables.size(); ++i)
        planned.tables.push_back(TablePlanner(dialect, types, schema.tables[i], names[i]).Plan());
    PlanKeys(dialect, schema, names, planned);
    return planned;
}

std::size_t CountTables(const ServerSchema& schema) {
    return static_cast<std::size_t>(std::ranges::count(schema.tables, false, &ServerTable::isLeftOut));
}

std::size_t CountKeys(const ServerSchema& schema) {
    std::size_t count = 0;
    for (const auto& table : schema.tables) count += table.keys.size();
    return count;
}

std::vector<const RemarkText*> RemarksOf(const ServerSchema& schema) {
    std::vector<const RemarkText*> remarks;
    for (const auto place : schema.order)
        for (const auto& remark : schema.tables[place].remarks) remarks.push_back(&remark);
    return remarks;
}

}  // namespace tessel::sql_script

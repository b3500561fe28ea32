#include "sql_script/key_planner.h"

#include <algorithm>
#include <utility>

#include "sql_script/text_tools.h"
#include "sql_script/type_kind.h"

namespace tessel::sql_script {

namespace {

bool IsShortText(const std::string& type) {
    const std::string upper = UpperAscii(type);
    return upper.starts_with("CHAR") || upper.starts_with("VARCHAR");
}

// Whether values of the kind compare with those of the kind that they refer to.
bool Compares(TypeKind kind, TypeKind refKind) {
    static constexpr std::pair<TypeKind, TypeKind> others[] = {
        {TypeKind::Whole, TypeKind::Exact},    {TypeKind::Whole, TypeKind::Float},
        {TypeKind::Exact, TypeKind::Float},    {TypeKind::Date, TypeKind::Timestamp},
        {TypeKind::Timestamp, TypeKind::Date},
    };
    return kind == refKind || std::ranges::count(others, std::pair(kind, refKind)) > 0;
}

class KeyPlanner {
  public:
    KeyPlanner(const Dialect& dialect, const Schema& schema, ServerSchema& planned)
        : dialect_(dialect), schema_(schema), planned_(planned), ranks_(planned.order.size()) {
        for (std::size_t i = 0; i < planned.order.size(); ++i) ranks_[planned.order[i]] = i;
    }

    void Plan(std::size_t table, const TableNames& names) {
        if (planned_.tables[table].isLeftOut) return;
        const auto& keys = schema_.tables[table].keys;
        for (std::size_t i = 0; i < keys.size(); ++i) PlanKey(table, keys[i], names.keys[i]);
    }

  private:
    void PlanKey(std::size_t table, const Key& key, const std::string& name) {
        const std::string what = schema_.tables[table].name + "." + key.name;
        auto& remarks = planned_.tables[table].remarks;
        if (key.isBroken || planned_.tables[*key.refTable].isLeftOut)
            return remarks.push_back({Text::BrokenKey, {what}});
        if (key.pairs.empty()) return remarks.push_back({Text::EmptyKey, {what}});
        const ServerIndex* index = IndexFor(key);
        if (!index)
            return remarks.push_back({Text::KeyNotUnique, {what, schema_.tables[*key.refTable].name}});
        for (const auto& pair : key.pairs)
            if (!Joins(table, pair.first, *key.refTable, pair.second))
                return remarks.push_back(
                    {Text::KeyTypes,
                     {what, dialect_.caption, TypeText(schema_.tables[table].columns[pair.first]),
                      TypeText(schema_.tables[*key.refTable].columns[pair.second])}});
        planned_.tables[table].keys.push_back({.name = name,
                                               .refTable = *key.refTable,
                                               .deletesCascade = key.deletesCascade,
                                               .isLater = IsLater(table, *key.refTable, *index),
                                               .pairs = InOrderOf(*index, key),
                                               .comment = key.comment});
    }

    // The unique index of the referenced columns; the primary one goes before others.
    [[nodiscard]] const ServerIndex* IndexFor(const Key& key) const {
        const auto holdsThem = [&](const ServerIndex& index) {
            const auto isPart = [&](const ColumnPair& pair) {
                return std::ranges::count(index.parts, pair.second, &IndexPart::column) == 1;
            };
            return index.isUnique && index.parts.size() == key.pairs.size() &&
                   std::ranges::all_of(key.pairs, isPart);
        };
        const auto& indexes = planned_.tables[*key.refTable].indexes;
        const auto found = std::ranges::find_if(indexes, holdsThem);
        return found == indexes.end() ? nullptr : &*found;
    }

    // Some servers want the pairs in the order of the index.
    static std::vector<ColumnPair> InOrderOf(const ServerIndex& index, const Key& key) {
        std::vector<ColumnPair> pairs;
        for (const auto& part : index.parts)
            pairs.push_back(*std::ranges::find(key.pairs, part.column, &ColumnPair::second));
        return pairs;
    }

    [[nodiscard]] bool Joins(std::size_t table, std::size_t column, std::size_t refTable,
                             std::size_t refColumn) const {
        const std::string& type = planned_.tables[table].columns[column].type;
        const std::string& refType = planned_.tables[refTable].columns[refColumn].type;
        if (dialect_.joins == JoinRule::Any || type == refType) return true;
        if (dialect_.joins == JoinRule::SameType) return IsShortText(type) && IsShortText(refType);
        return Compares(KindOf(schema_.tables[table].columns[column].typeName),
                        KindOf(schema_.tables[refTable].columns[refColumn].typeName));
    }

    [[nodiscard]] bool IsLater(std::size_t table, std::size_t refTable, const ServerIndex& index) const {
        if (!dialect_.altersKeys) return false;
        // Of the indexes, the table's definition may have the primary one alone.
        if (table == refTable) return !dialect_.hasInlineIndexes && !index.isPrimary;
        return ranks_[refTable] > ranks_[table];
    }

    const Dialect& dialect_;
    const Schema& schema_;
    ServerSchema& planned_;
    std::vector<std::size_t> ranks_;  // when each table is made
};

}  // namespace

void PlanKeys(const Dialect& dialect, const Schema& schema, const std::vector<TableNames>& names,
              ServerSchema& planned) {
    KeyPlanner planner(dialect, schema, planned);
    for (std::size_t i = 0; i < names.size(); ++i) planner.Plan(i, names[i]);
}

}  // namespace tessel::sql_script

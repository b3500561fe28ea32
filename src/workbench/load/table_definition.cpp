#include "workbench/load/table_definition.h"

#include <fmt/format.h>

#include <algorithm>
#include <unordered_map>

#include "platform/text/utf8.h"

namespace tessel::workbench {
namespace {

// Finds what bears a name exactly, or else what bears it in other letters.
class Places {
  public:
    void Enter(const std::string& name, std::size_t place) {
        exact_[name] = place;
        folded_.emplace(text::LowerAscii(name), place);
    }

    [[nodiscard]] std::optional<std::size_t> Find(const std::string& name) const {
        const auto exact = exact_.find(name);
        if (exact != exact_.end()) return exact->second;
        const auto folded = folded_.find(text::LowerAscii(name));
        return folded == folded_.end() ? std::nullopt : std::optional(folded->second);
    }

  private:
    std::unordered_map<std::string, std::size_t> exact_;
    std::unordered_map<std::string, std::size_t> folded_;
};

class Definer {
  public:
    Definer(const SqlTypeTable& types, const NameRule& rule, std::vector<db::SourceNote>& notes)
        : types_(types), rule_(rule), notes_(notes) {}

    void Define(const db::SourceTable& source, const std::string& name) {
        NoteName(source.name, source.name, name);
        tablePlaces_.Enter(source.name, tables_.size());
        tables_.push_back(
            {.sourceName = source.name, .name = name, .isView = source.isView, .comment = source.comment});
        columnPlaces_.emplace_back();
        sources_.push_back(&source);
        DefineColumns();
        DefineIndexes();
    }

    // Once every table is defined, for keys lead from one to another.
    std::vector<TableDefinition> TakeWithKeys() {
        for (std::size_t place = 0; place < tables_.size(); ++place) DefineKeys(place);
        return std::move(tables_);
    }

  private:
    void NoteName(const std::string& what, const std::string& given, const std::string& taken) {
        if (!given.empty() && given != taken) notes_.push_back({what, "it is called " + taken + " here"});
    }

    void DefineColumns() {
        const db::SourceTable& source = *sources_.back();
        FreeNames names(rule_);
        for (const auto& column : source.columns) {
            const std::string what = source.name + "." + column.name;
            const std::string name = names.Take(column.name, "C");
            NoteName(what, column.name, name);
            columnPlaces_.back().Enter(column.name, tables_.back().columns.size());
            tables_.back().columns.push_back(
                {name, TypeOf(what, column.type), column.isNullable, column.defaultValue, column.comment});
        }
    }

    ColumnType TypeOf(const std::string& what, const std::string& declared) {
        ColumnType type = types_.TypeFor(declared);
        const std::string was = declared.empty() ? "a column without a type" : "the type " + declared;
        if (!type.isExact) notes_.push_back({what, was + " becomes " + type.text});
        return type;
    }

    void DefineIndexes() {
        const db::SourceTable& source = *sources_.back();
        FreeNames names(rule_);
        for (const auto& index : source.indexes) {
            const std::string name = names.Take(index.name, index.isPrimary  ? "PrimaryKey"
                                                            : index.isUnique ? "Unique"
                                                                             : "Index");
            NoteName(source.name + ", index " + index.name, index.name, name);
            TableDefinition::Index defined{name, index.isUnique, index.isPrimary, {}, index.comment};
            for (const auto& column : index.columns)
                if (const auto place = columnPlaces_.back().Find(column.name))
                    AddPart(defined.parts, {*place, column.isDescending});
            tables_.back().indexes.push_back(std::move(defined));
        }
    }

    // A column that an index lists again adds nothing to it.
    static void AddPart(std::vector<TableDefinition::Index::Part>& parts,
                        const TableDefinition::Index::Part& part) {
        if (std::ranges::count(parts, part.column, &TableDefinition::Index::Part::column) == 0)
            parts.push_back(part);
    }

    void DefineKeys(std::size_t table) {
        FreeNames names(rule_);
        for (const auto& key : sources_[table]->keys) {
            const std::string what = sources_[table]->name + " -> " + key.refTable;
            auto defined = Resolved(table, key);
            if (!defined) {
                notes_.push_back({what, "the foreign key is left out, for what it refers to is not there"});
                continue;
            }
            const std::string fallback = "FK_" + tables_[table].name + "_" + tables_[defined->refTable].name;
            defined->name = names.Take(key.name.empty() ? fallback : key.name, "FK");
            NoteName(what, key.name, defined->name);
            tables_[table].keys.push_back(std::move(*defined));
        }
    }

    // Nothing when the table or a column of it is not there.
    std::optional<TableDefinition::Key> Resolved(std::size_t table, const db::SourceKey& key) const {
        const auto refTable = tablePlaces_.Find(key.refTable);
        if (!refTable) return {};
        TableDefinition::Key resolved{"", *refTable, key.deletesCascade, {}, key.comment};
        for (const auto& pair : key.pairs) {
            const auto column = columnPlaces_[table].Find(pair.column);
            const auto refColumn = columnPlaces_[*refTable].Find(pair.refColumn);
            if (!column || !refColumn) return {};
            resolved.pairs.push_back({*column, *refColumn});
        }
        return resolved;
    }

    const SqlTypeTable& types_;
    const NameRule& rule_;
    std::vector<db::SourceNote>& notes_;
    std::vector<const db::SourceTable*> sources_;
    std::vector<TableDefinition> tables_;
    std::vector<Places> columnPlaces_;  // by table
    Places tablePlaces_;
};

// The 64-bit FNV-1a hash.
std::uint64_t Hash(std::string_view text) {
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3;
    return hash;
}

}  // namespace

std::vector<TableDefinition> DefineTables(const std::vector<db::SourceTable>& tables,
                                          const std::vector<std::optional<std::string>>& names,
                                          const SqlTypeTable& types, const NameRule& rule,
                                          std::vector<db::SourceNote>& notes) {
    Definer definer(types, rule, notes);
    for (std::size_t i = 0; i < tables.size(); ++i)
        if (names[i]) definer.Define(tables[i], *names[i]);
    return definer.TakeWithKeys();
}

std::string Fingerprint(const TableDefinition& table, const std::vector<TableDefinition>& tables) {
    std::string text = table.isView ? "view" : "table";
    // Every text goes in with its length, so that no two definitions read alike.
    const auto add = [&](const std::string& part) { text += fmt::format("|{}:{}", part.size(), part); };
    const auto addComment = [&](const std::string& comment) {
        if (comment.empty()) return;
        text += "|m";
        add(comment);
    };
    addComment(table.comment);
    for (const auto& column : table.columns) {
        add(column.name);
        text += fmt::format("|c{},{},{},{}", column.type.typeID, column.type.precision, column.type.scale,
                            column.isNullable);
        if (column.defaultValue) add(*column.defaultValue);
        addComment(column.comment);
    }
    for (const auto& index : table.indexes) {
        add(index.name);
        text += fmt::format("|i{},{}", index.isUnique, index.isPrimary);
        for (const auto& part : index.parts) text += fmt::format("|{},{}", part.column, part.isDescending);
        addComment(index.comment);
    }
    for (const auto& key : table.keys) {
        add(key.name);
        add(tables[key.refTable].name);
        text += fmt::format("|k{}", key.deletesCascade);
        for (const auto& pair : key.pairs) {
            text += fmt::format("|{}", pair.column);
            add(tables[key.refTable].columns[pair.refColumn].name);
        }
        addComment(key.comment);
    }
    return fmt::format("{:016x}", Hash(text));
}

}  // namespace tessel::workbench

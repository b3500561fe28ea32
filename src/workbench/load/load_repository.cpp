#include "workbench/load/load_repository.h"

#include <algorithm>
#include <optional>
#include <unordered_map>
#include <unordered_set>

#include "platform/xml/characters.h"
#include "workbench/load/schema_writer.h"
#include "workbench/load/target_database.h"

namespace tessel::workbench {
namespace {

constexpr const char* tableType = "TABLE";

struct KnownObject {
    std::string identifier;
    std::string name;        // of its table; empty while the source has none
    std::string modified{};  // as an ISO date
};

// One load, inside a change of the repository and a transaction of the database.
class Load {
  public:
    Load(const Source& source, const LoadTarget& target, RepositoryContents& contents, db::Database& database)
        : source_(source),
          target_(target),
          contents_(contents),
          writer_(database),
          types_(database),
          names_(target.nameRule) {}

    LoadOutcome Run() {
        outcome_.notes = source_.catalogue.notes;
        ReadObjects();
        RemoveWhatIsGone();
        ReadTables();
        const auto names = ChooseNames();
        tables_ = DefineTables(source_.catalogue.tables, names, types_, target_.nameRule, outcome_.notes);
        for (const auto& table : tables_) Write(table);
        for (const auto& [place, origin] : written_) WriteParts(place, origin);
        return std::move(outcome_);
    }

  private:
    std::string AttributeOf(const std::string& identifier, const char* name) const {
        return contents_.Attribute(identifier, name).value_or("");
    }

    void ReadObjects() {
        for (const auto& identifier : contents_.ObjectsOf(tableType)) {
            const std::string name = AttributeOf(identifier, "Name");
            if (AttributeOf(identifier, "LoadedFrom") == source_.name)
                known_[AttributeOf(identifier, "SourceName")] = {identifier, name,
                                                                 AttributeOf(identifier, "Modified")};
            else if (!name.empty())
                others_.Enter(name);
        }
    }

    void RemoveWhatIsGone() {
        std::unordered_set<std::string> present;
        for (const auto& table : source_.catalogue.tables) present.insert(table.name);
        for (auto& [sourceName, object] : known_) {
            if (present.contains(sourceName)) {
                live_.insert(object.identifier);
            } else if (!object.name.empty()) {
                outcome_.removed.push_back(object.name);
                contents_.SetAttributes(object.identifier, {{"Name", ""}});
                object.name.clear();
            }
        }
        std::ranges::sort(outcome_.removed);
    }

    // Tables of this source that no object stands for are left over from a load that was cut off.
    void ReadTables() {
        for (auto& row : writer_.Tables()) {
            if (row.source != source_.name)
                others_.Enter(row.name);
            else if (live_.contains(row.object))
                rows_.emplace(row.object, std::move(row));
            else
                writer_.DropTable(row.tabID);
        }
    }

    std::vector<std::optional<std::string>> ChooseNames() {
        for (const auto& [sourceName, object] : known_) names_.Enter(object.name);
        std::vector<std::optional<std::string>> names;
        for (const auto& table : source_.catalogue.tables) names.push_back(ChooseName(table.name));
        return names;
    }

    std::optional<std::string> ChooseName(const std::string& sourceName) {
        if (!xml::CanBeHeld(sourceName)) {
            outcome_.notes.push_back(
                {names_.Plain(sourceName, "T"),
                 "it is left out, for its name holds a control character or is not UTF-8"});
            return {};
        }
        const auto known = known_.find(sourceName);
        if (known != known_.end() && !known->second.name.empty()) return known->second.name;
        const std::string wanted = names_.Plain(sourceName, "T");
        if (!others_.IsTaken(wanted)) return names_.Take(wanted, "T", &others_);
        outcome_.notes.push_back(
            {sourceName,
             "it is left out, for another source or an entry made by hand has the name " + wanted});
        return {};
    }

    void Write(const TableDefinition& table) {
        ++(table.isView ? outcome_.views : outcome_.tables);
        const auto known = known_.find(table.sourceName);
        const bool isNew = known == known_.end();
        KnownObject object = isNew ? KnownObject{contents_.TakeIdentifier(), ""} : known->second;
        const auto row = rows_.find(object.identifier);
        const bool hasRow = row != rows_.end();
        const std::string fingerprint = Fingerprint(table, tables_);
        const bool isSame = hasRow && object.name == table.name && row->second.name == table.name &&
                            row->second.modified == object.modified &&
                            AttributeOf(object.identifier, "Definition") == fingerprint;
        if (isSame) return tabIDs_.push_back(row->second.tabID);
        if (isNew) contents_.AddObject(object.identifier, tableType);
        (object.name.empty() ? outcome_.added : outcome_.changed).push_back(table.name);
        const DateTime modified = Modified(object);
        WriteObject(table, object.identifier, isNew, modified, fingerprint);
        written_.push_back({tabIDs_.size(), "obj:" + object.identifier});
        tabIDs_.push_back(writer_.WriteTable(hasRow ? std::optional(row->second.tabID) : std::nullopt, table,
                                             {object.identifier, source_.name, modified}));
    }

    // Later than before by the second that dates are kept to, however soon after it comes.
    DateTime Modified(const KnownObject& object) const {
        const auto before = ParseIso(object.modified);
        return before ? std::max(target_.now, DateTime{before->seconds + 1}) : target_.now;
    }

    void WriteObject(const TableDefinition& table, const std::string& identifier, bool isNew,
                     DateTime modified, const std::string& fingerprint) {
        RepositoryContents::Attributes attributes{{"Name", table.name},
                                                  {"IsView", table.isView ? "True" : "False"}};
        if (isNew) attributes.emplace_back("Created", FormatIso(modified));
        attributes.insert(attributes.end(), {{"Modified", FormatIso(modified)},
                                             {"LoadedFrom", source_.name},
                                             {"SourceName", table.sourceName},
                                             {"Definition", fingerprint}});
        contents_.SetAttributes(identifier, attributes);
    }

    // Once every table has its columns, for keys lead from one to another.
    void WriteParts(std::size_t place, const std::string& origin) {
        writer_.WriteIndexes(tabIDs_[place], tables_[place], origin);
        writer_.WriteKeys(tabIDs_[place], tables_[place], tabIDs_, origin);
    }

    const Source& source_;
    const LoadTarget& target_;
    RepositoryContents& contents_;
    SchemaWriter writer_;
    SqlTypeTable types_;
    LoadOutcome outcome_;
    std::unordered_map<std::string, KnownObject> known_;       // by the table's name in the source
    std::unordered_set<std::string> live_;                     // known objects whose table is there
    std::unordered_map<std::string, SchemaWriter::Row> rows_;  // by object
    FreeNames names_;                                          // of this source
    FreeNames others_{target_.nameRule};                       // of everything else
    std::vector<TableDefinition> tables_;
    std::vector<std::int32_t> tabIDs_;                          // in the order of tables_
    std::vector<std::pair<std::size_t, std::string>> written_;  // place in tables_, origin reference
};

}  // namespace

LoadOutcome LoadRepository(const Source& source, const LoadTarget& target) {
    LoadOutcome outcome;
    std::optional<TargetDatabase> database;
    target.file.Change(
        [&](RepositoryContents& contents) {
            database.emplace(target.folder + "/DBSchema.mdb", target.templateDatabase);
            outcome = Load(source, target, contents, **database).Run();
        },
        [&] { database->Keep(); });
    return outcome;
}

}  // namespace tessel::workbench

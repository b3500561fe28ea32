#include "sql_script/server_names.h"

#include <unordered_map>
#include <unordered_set>

#include "sql_script/text_tools.h"

namespace tessel::sql_script {

namespace {

// The name, cut to what the server takes.
std::string Fitting(const Dialect& dialect, std::string name) {
    if (*dialect.reservedPrefix && LowerAscii(name).starts_with(dialect.reservedPrefix)) name = "T_" + name;
    const std::size_t longest = dialect.longestName;
    const std::size_t length = dialect.isNameInBytes ? name.size() : CharacterCount(name);
    if (longest == 0 || length <= longest) return name;
    const std::string digest = "_" + Digest(name);
    const std::size_t room = longest - digest.size();
    return std::string(dialect.isNameInBytes ? LeftBytes(name, room) : LeftCharacters(name, room)) + digest;
}

// Names that differ from each other without regard to ASCII case.
class UniqueNames {
  public:
    explicit UniqueNames(const Dialect& dialect) : dialect_(dialect) {}

    [[nodiscard]] bool IsTaken(const std::string& name) const { return taken_.contains(LowerAscii(name)); }
    // The name, or the first numbered form of it that is free.
    std::string Take(const std::string& wanted) {
        std::string name = Fitting(dialect_, wanted);
        for (int number = 2; IsTaken(name); ++number)
            name = Fitting(dialect_, wanted + "_" + std::to_string(number));
        taken_.insert(LowerAscii(name));
        return name;
    }

  private:
    const Dialect& dialect_;
    std::unordered_set<std::string> taken_;
};

// An index or key that gets a name among those of the whole schema.
struct Applicant {
    const std::string& name;
    const std::string& table;
    std::string& given;
    bool mayKeep;
};

void NameTogether(UniqueNames& names, const std::vector<Applicant>& applicants) {
    std::unordered_map<std::string, int> counts;
    for (const auto& applicant : applicants) ++counts[LowerAscii(applicant.name)];
    const auto keeps = [&](const Applicant& applicant) {
        return applicant.mayKeep && counts[LowerAscii(applicant.name)] == 1;
    };
    std::vector<const Applicant*> others;
    for (const auto& applicant : applicants)
        if (keeps(applicant) && !names.IsTaken(applicant.name))
            applicant.given = names.Take(applicant.name);
        else
            others.push_back(&applicant);
    for (const auto* applicant : others)
        applicant->given = names.Take(applicant->table + "_" + applicant->name);
}

class Namer {
  public:
    Namer(const Dialect& dialect, const Schema& schema)
        : dialect_(dialect), schema_(schema), names_(schema.tables.size()), shared_(dialect) {}

    std::vector<TableNames> Name() {
        NameTables();
        NameIndexes();
        NameKeys();
        return std::move(names_);
    }

  private:
    void NameTables() {
        for (std::size_t i = 0; i < names_.size(); ++i) {
            const Table& table = schema_.tables[i];
            names_[i].table = shared_.Take(table.name);
            UniqueNames columns(dialect_);
            for (const auto& column : table.columns) names_[i].columns.push_back(columns.Take(column.name));
            names_[i].indexes.resize(table.indexes.size());
            names_[i].keys.resize(table.keys.size());
        }
    }

    void NameIndexes() {
        std::vector<Applicant> applicants;
        for (std::size_t i = 0; i < names_.size(); ++i) {
            const auto& indexes = schema_.tables[i].indexes;
            UniqueNames ofTable(dialect_);
            for (std::size_t j = 0; j < indexes.size(); ++j) {
                std::string& given = names_[i].indexes[j];
                const NameScope scope = indexes[j].isPrimary ? dialect_.primaryNames : dialect_.indexNames;
                if (scope == NameScope::Schema)
                    applicants.push_back({indexes[j].name, schema_.tables[i].name, given, true});
                else if (scope == NameScope::Table)
                    given = ofTable.Take(IsPrimaryWord(indexes[j].name)
                                             ? schema_.tables[i].name + "_" + indexes[j].name
                                             : indexes[j].name);
                else
                    given = Fitting(dialect_, indexes[j].name);
            }
        }
        NameTogether(shared_, applicants);
    }

    // What a server with index names of the table's own calls the primary index.
    static bool IsPrimaryWord(const std::string& name) { return LowerAscii(name) == "primary"; }

    void NameKeys() {
        std::vector<Applicant> applicants;
        for (std::size_t i = 0; i < names_.size(); ++i) {
            UniqueNames ofTable(dialect_);
            std::unordered_set<std::string> indexNames;
            for (std::size_t j = 0; j < names_[i].indexes.size(); ++j) {
                indexNames.insert(LowerAscii(names_[i].indexes[j]));
                if (schema_.tables[i].indexes[j].isPrimary) ofTable.Take(names_[i].indexes[j]);
            }
            for (std::size_t j = 0; j < names_[i].keys.size(); ++j) {
                const std::string& name = schema_.tables[i].keys[j].name;
                std::string& given = names_[i].keys[j];
                if (dialect_.keyNames == NameScope::Schema)
                    applicants.push_back(
                        {name, schema_.tables[i].name, given, !indexNames.contains(LowerAscii(name))});
                else if (dialect_.keyNames == NameScope::Table)
                    given = ofTable.Take(name);
                else
                    given = name;
            }
        }
        UniqueNames keys(dialect_);
        NameTogether(keys, applicants);
    }

    const Dialect& dialect_;
    const Schema& schema_;
    std::vector<TableNames> names_;
    UniqueNames shared_;  // by tables and, on some servers, indexes
};

}  // namespace

std::vector<TableNames> NameForServer(const Dialect& dialect, const Schema& schema) {
    return Namer(dialect, schema).Name();
}

}  // namespace tessel::sql_script

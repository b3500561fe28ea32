// Whatever rows a schema database holds, everything that reads them works or says so. The first byte of the
// first line chooses a database that keeps its rules (0) or one without (1). Each further line is a row: the
// letter of its table, then its fields, parted by '|'. A field is empty for Null, a number, # and a number
// for a text of so many thousand characters, = before bytes that are no text, or a text.

#include <array>
#include <charconv>

#include "engine/headless_window.h"
#include "engine/queued_questions.h"
#include "engine/scrivo_add_on.h"
#include "engine/tessel_engine.h"
#include "fuzz/input.h"
#include "fuzz/raw_database.h"
#include "import/import_db_schema.h"
#include "platform/diagram/diagram_file.h"
#include "report/schema_diagram.h"
#include "schema/sql_text.h"
#include "support/temporary_folder.h"
#include "ui/rules/browser_list.h"
#include "ui/rules/locale_conversions.h"
#include "ui/rules/properties_list.h"
#include "ui/rules/table_commands.h"
#include "verify/db_check.h"
#include "workbench/generator.h"
#include "workbench/stand_alone_frontend.h"

namespace tessel::fuzz {
namespace {

namespace fs = std::filesystem;

struct Table {
    char letter;
    const char* name;
    std::size_t fields;
};
constexpr std::array<Table, 9> tables{{{'T', "Tables", 9},
                                       {'C', "Columns", 13},
                                       {'I', "Indices", 6},
                                       {'i', "IndexColumns", 5},
                                       {'F', "ForeignKeys", 7},
                                       {'f', "ForeignKeyColumns", 4},
                                       {'Y', "SQLTypes", 4},
                                       {'S', "ProjectSettings", 2},
                                       {'E', "Errors", 4}}};
constexpr int mostRows = 60;
constexpr std::size_t mostLooks = 4;  // at things of one kind

template <typename Number>
std::optional<RawField> NumberIn(const std::string& text) {
    Number number{};
    const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (fault != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

RawField FieldOf(const std::string& text) {
    if (text.empty()) return std::monostate{};
    if (text.front() == '=') return std::vector<char>(text.begin() + 1, text.end());
    if (text.front() == '#') {
        const auto size = NumberIn<std::int64_t>(text.substr(1));
        return std::string(size ? static_cast<std::size_t>(std::get<std::int64_t>(*size) & 63) * 1000 : 0,
                           'x');
    }
    if (auto integer = NumberIn<std::int64_t>(text)) return *integer;
    return NumberIn<double>(text).value_or(text);
}

void InsertLine(RawDatabase& database, std::string line) {
    const std::string letter = NextToken(line, '|');
    for (const auto& table : tables) {
        if (letter.empty() || letter.front() != table.letter) continue;
        std::vector<RawField> fields;
        while (fields.size() < table.fields) fields.push_back(FieldOf(NextToken(line, '|')));
        database.Insert(table.name, fields);
    }
}

// Two templates, a workspace whose project has the schema, and a repository of a few tables.
class Surroundings {
  public:
    Surroundings() {
        for (const char* name : {"strict.mdb", "loose.mdb"})
            fs::copy_file(std::string(TESSEL_SHARE) + "/DBSchema.mdb", folder_ / name);
        RawDatabase(folder_ / "loose.mdb").DropRules();
        auto folder = workbench::WorkspaceFolder::Create(folder_ / "w", "Main");
        fs::create_directory(SchemaFolder());
        folder.File()->Change([](workbench::RepositoryContents& contents) {
            for (const char* name : {"A", "B", "C"}) {
                const auto object = contents.TakeIdentifier();
                contents.AddObject(object, "TABLE");
                contents.SetAttributes(object, {{"Name", name}, {"Modified", "2026-01-31T10:00:00"}});
            }
        });
        diagram::SaveDiagram(SchemaFolder() + "/Main.dgm.xml",
                             {{{.key = "t1", .rect = {0, 0, 9, 9}}, {.key = "t2", .rect = {20, 0, 9, 9}}}},
                             {});
    }

    [[nodiscard]] std::string WorkspacePath() const { return folder_ / "w"; }
    [[nodiscard]] std::string SchemaFolder() const { return WorkspacePath() + "/Projects/Main/DBSCHEMA"; }

    void Fill(Input& input) const {
        const std::string database = SchemaFolder() + "/Main.mdb";
        const bool loose = input.Line().starts_with('1');
        fs::remove(database + "-journal");
        fs::copy_file(folder_ / (loose ? "loose.mdb" : "strict.mdb"), database,
                      fs::copy_options::overwrite_existing);
        {
            RawDatabase raw(database);
            raw.Run("begin");
            for (int rows = 0; rows < mostRows && !input.IsEmpty(); ++rows) InsertLine(raw, input.Line());
            raw.Run("commit");
        }
        fs::copy_file(database, WorkspacePath() + "/DBSchema.mdb", fs::copy_options::overwrite_existing);
    }

  private:
    TemporaryFolder folder_;
};

class NoConversions : public LocaleConversions {
  public:
    [[nodiscard]] std::optional<double> ToNumber(const std::string&) const override { return std::nullopt; }
    [[nodiscard]] bool IsDate(const std::string&) const override { return false; }
};

void LookAtRow(const PropertiesList& list, std::size_t row) {
    (void)list.LocateItemFor(row);
    (void)list.Locate(row);
    Succeeds([&] { (void)list.OpenColumn(row, NoConversions()); });
    Succeeds([&] { (void)list.OpenIndex(row); });
    Succeeds([&] { (void)list.OpenKey(row); });
}

void LookAtTable(PropertiesList& list, const PropertiesList::Table& table) {
    using enum PropertiesTab;
    for (const auto tab : {Columns, Indexes, Keys, ReferencedBy}) {
        list.MarkUserTabChange();
        Succeeds([&] { list.ChangeTab(tab); });
        Succeeds([&] { list.Fill(table); });
        (void)list.ColumnWidths(list.Rows(),
                                [](const std::string& text) { return static_cast<int>(text.size()); });
        for (std::size_t row = 0; row < list.Rows().size() && row < mostLooks; ++row) LookAtRow(list, row);
    }
}

std::vector<PropertiesList::Table> Browse(ComponentState& state) {
    BrowserList browser;
    Succeeds([&] { browser.Refresh(state.Database(), state.Frontend()); });
    std::vector<PropertiesList::Table> listed;
    for (const auto& row : browser.Rows())
        if (listed.size() < mostLooks) listed.push_back({std::stoi(row.key.substr(1)), row.text});
    return listed;
}

void Report(ComponentState& state) {
    const auto generator =
        std::make_shared<workbench::StandAloneGenerator>(workbench::StandAloneGenerator::Settings{
            state.Frontend().GetCorvaneName(host::name_item::workspaceFolder) + "/Output", TESSEL_SHARE,
            "Fuzz", "en", [&] { return SchemaDiagram(state.Database()); }});
    const auto page = std::make_shared<workbench::GeneratorPage>("Main", "Main");
    ScrivoAddOn(state).CreateReport(generator, page, generator);
}

void ChangeTable(ComponentState& state, const PropertiesList::Table& table) {
    const auto workspace = WorkspaceOf(state);
    std::int32_t column = -1;
    std::string name = table.name;
    Succeeds([&] { (void)workspace->PrimaryKeyColumns(table.tabID); });
    Succeeds([&] { (void)workspace->GetFreeTableName(name); });
    Succeeds([&] {
        (void)workspace->ColumnAdd(table.tabID, name, 4, 0, 0, true, {}, {}, {}, {}, {}, -1, column);
    });
    Succeeds([&] { (void)workspace->PrimaryAdd(table.tabID); });
    Succeeds([&] { (void)TableCommands(state).Rename(table.tabID, table.name, table.name + "x"); });
    Succeeds([&] { (void)workspace->TableDrop(table.tabID); });
}

void UseAll(ComponentState& state) {
    Succeeds([&] { DBCheck(state).VerifySchema(true); });
    const auto listed = Browse(state);
    PropertiesList list(state);
    for (const auto& table : listed) LookAtTable(list, table);
    Succeeds([&] { Report(state); });
    (void)modImportDBSchema(state).SyncDBSchema();
    for (const auto& table : listed) ChangeTable(state, table);
    Succeeds([&] { DBCheck(state).VerifySchema(true); });
}

}  // namespace
}  // namespace tessel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tessel;
    using namespace tessel::fuzz;
    static const Surroundings surroundings;
    RenewEngineBudget();
    Input input(data, size);
    surroundings.Fill(input);
    ComponentState state;
    const auto frontend = std::make_shared<workbench::StandAloneFrontend>(
        workbench::WorkspaceFolder::Open(surroundings.WorkspacePath()), "Main", std::string(TESSEL_SHARE),
        "en");
    if (TesselEngine(state).Run(frontend, Missing{}, Missing{}) == 0) UseAll(state);
    return 0;
}

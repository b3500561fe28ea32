// Measures the properties pane on one table of many columns: bench_properties [COLUMNS...]
//
// First how fast the pane of the real window is filled, from reading the columns until they are painted,
// against a plain list that is given the same texts. Then how long it takes to move the last column to the
// front, against a bare transaction that writes the same positions.

#include <sqlite3.h>

#include <QApplication>
#include <QTreeWidget>
#include <algorithm>
#include <chrono>
#include <functional>
#include <limits>

#include "bench.h"
#include "engine/queued_questions.h"
#include "engine/tessel_engine.h"
#include "generate_schema.h"
#include "schema/object_keys.h"
#include "ui/main/frm_main.h"
#include "workbench/stand_alone_frontend.h"

namespace {

using namespace tessel;

constexpr int rounds = 5;
constexpr int columnsEach = 20;  // of a generated table

double Seconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void Require(bool holds, const char* complaint) {
    if (!holds) throw std::runtime_error(complaint);
}

// A connection that bypasses the editor, as durable as the editor's own.
class Connection {
  public:
    explicit Connection(const std::string& file) {
        Require(sqlite3_open(file.c_str(), &connection_) == SQLITE_OK, "The database does not open.");
        Run("pragma journal_mode=persist; pragma synchronous=full");
    }
    ~Connection() { sqlite3_close(connection_); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    void Run(const std::string& sql) {
        Require(sqlite3_exec(connection_, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK,
                sqlite3_errmsg(connection_));
    }

    // Numbers the columns from 1 in the order of the rows.
    void WritePositions(const std::vector<PropertyRow>& rows) {
        Run("begin immediate");
        sqlite3_stmt* update = nullptr;
        sqlite3_prepare_v2(connection_, "update Columns set Position=? where ColumnID=?", -1, &update,
                           nullptr);
        for (int position = 0; const PropertyRow& row : rows) {
            sqlite3_bind_int(update, 1, ++position);
            sqlite3_bind_int(update, 2, row.identifier);
            sqlite3_step(update);
            sqlite3_reset(update);
        }
        sqlite3_finalize(update);
        Run("commit");
    }

    [[nodiscard]] int RowsTouched() const { return sqlite3_total_changes(connection_); }

  private:
    sqlite3* connection_ = nullptr;
};

// The schema's one table holds the columns of all generated ones.
void GenerateTable(const std::string& file, int columns) {
    bench::GenerateSchema(TESSEL_SHARE, file, (columns + columnsEach - 1) / columnsEach);
    Connection(file).Run(
        "begin; delete from Tables where TabID > 1; delete from Indices where TabID > 1; "
        "delete from IndexColumns where IndexID > 3; delete from ForeignKeys; delete from ForeignKeyColumns; "
        "delete from Columns where ColumnID > " +
        std::to_string(columns) +
        "; update Columns set TabID = 1, Position = ColumnID, ColumnName = printf('COLUMN_%05d', ColumnID); "
        "commit");
}

// The best of all rounds, in seconds.
struct Figures {
    double filled = std::numeric_limits<double>::infinity();
    double plainFilled = std::numeric_limits<double>::infinity();
    double moved = std::numeric_limits<double>::infinity();
    double bareMoved = std::numeric_limits<double>::infinity();
};

double FillAndPaint(QTreeView& list, const std::function<void()>& fill) {
    return Seconds([&] {
        fill();
        list.viewport()->repaint();
    });
}

QList<QStringList> TextsOf(const QAbstractItemModel& model) {
    QList<QStringList> rows;
    for (int row = 0; row < model.rowCount(); ++row) {
        rows.append(QStringList());
        for (int column = 0; column < model.columnCount(); ++column)
            rows.back().append(model.index(row, column).data().toString());
    }
    return rows;
}

double FillPlainList(const QList<QStringList>& texts, QSize size) {
    QTreeWidget list;
    list.setColumnCount(static_cast<int>(texts.front().size()));
    list.setUniformRowHeights(true);
    list.resize(size);
    list.show();
    QApplication::processEvents();
    return FillAndPaint(list, [&] {
        QList<QTreeWidgetItem*> items;
        for (const QStringList& row : texts) items.append(new QTreeWidgetItem(row));
        list.addTopLevelItems(items);
    });
}

void MeasureFilling(frmMain& window, int columns, Figures& figures) {
    auto& pane = *window.findChild<PropertiesPane*>();
    ListView& list = pane.View();
    const BrowserRow table{.key = TableKey(1), .text = "TABLE_00001", .description = {}, .tag = {}};
    for (int i = 0; i < rounds; ++i) {
        pane.Show(nullptr);
        QApplication::processEvents();
        figures.filled = std::min(figures.filled, FillAndPaint(list, [&] { pane.Show(&table); }));
        Require(list.isVisible() && list.model()->rowCount() == columns, "The pane does not show the table.");
        const auto texts = TextsOf(*list.model());
        figures.plainFilled = std::min(figures.plainFilled, FillPlainList(texts, list.size()));
    }
}

void MeasureMoving(ComponentState& state, int columns, Figures& figures) {
    const std::string copy = state.Database().Path() + ".copy";
    std::filesystem::copy_file(state.Database().Path(), copy);
    Connection bare(copy);
    PropertiesList list(state);
    list.Fill(PropertiesList::Table{1, "TABLE_00001"});
    const auto last = static_cast<std::size_t>(columns) - 1;
    for (int i = 0; i < rounds; ++i) {
        bool isMoved = false;
        figures.moved = std::min(figures.moved, Seconds([&] { isMoved = list.MoveColumn(last, 0); }));
        Require(isMoved, "The column does not move.");
        figures.bareMoved = std::min(figures.bareMoved, Seconds([&] { bare.WritePositions(list.Rows()); }));
    }
    Require(bare.RowsTouched() == rounds * columns, "The bare transaction writes something else.");
}

Figures Measure(int columns) {
    const bench::Folder folder;
    qputenv("XDG_CONFIG_HOME", (folder / "config").c_str());
    auto workspace = workbench::WorkspaceFolder::Create(folder / "w", "Main");
    const std::string schemas = folder / "w/Projects/Main/DBSCHEMA";
    std::filesystem::create_directory(schemas);
    GenerateTable(schemas + "/Main.mdb", columns);
    ComponentState state;
    state.questions = std::make_shared<QueuedQuestions>();
    state.loadMainWindow = LoadMainWindow;
    const auto frontend = std::make_shared<workbench::StandAloneFrontend>(std::move(workspace), "Main",
                                                                          std::string(TESSEL_SHARE));
    Require(TesselEngine(state).Run(frontend, Missing{}, Missing{}) == 0, "The schema does not open.");
    Figures figures;
    MeasureFilling(dynamic_cast<frmMain&>(*state.window), columns, figures);
    MeasureMoving(state, columns, figures);
    state.window.reset();
    return figures;
}

void Report(const std::vector<int>& sizes) {
    fmt::print("{:>7} {:>12} {:>12} {:>6} {:>9} {:>8} {:>6} {:>8}\n", "columns", "filled row/s",
               "plain row/s", "ratio", "moved ms", "bare ms", "ratio", "peak MB");
    for (const int columns : sizes) {
        const Figures f = Measure(columns);
        fmt::print("{:>7} {:>12.0f} {:>12.0f} {:>6.2f} {:>9.2f} {:>8.2f} {:>6.2f} {:>8.1f}\n", columns,
                   columns / f.filled, columns / f.plainFilled, f.filled / f.plainFilled, f.moved * 1000,
                   f.bareMoved * 1000, f.moved / f.bareMoved, bench::PeakMegabytes());
    }
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int count = 1;
    QApplication application(count, argv);
    if (argc > 1) return tessel::bench::Run(argc, argv, Report);
    std::vector<std::string> sizes{"bench_properties", "200", "2000", "20000"};
    std::vector<char*> arguments;
    for (auto& size : sizes) arguments.push_back(size.data());
    return tessel::bench::Run(static_cast<int>(arguments.size()), arguments.data(), Report);
}

// Measures the properties pane on one table of many columns: bench_properties [COLUMNS...]
//
// First how fast the pane of the real window is filled, from reading the columns until they are painted,
// against a plain list that is given the same texts. Then how long it takes to move the last column to the
// front, against a bare transaction that writes the same positions.

#include <QApplication>
#include <QTreeWidget>
#include <functional>

#include "bench.h"
#include "engine/queued_questions.h"
#include "generate_schema.h"
#include "schema/object_keys.h"
#include "statement.h"
#include "ui/main/frm_main.h"

namespace {

using namespace tessel;

void Require(bool holds, const char* complaint) {
    if (!holds) throw std::runtime_error(complaint);
}

// Numbers the columns from 1 in the order of the rows.
void WritePositions(bench::Connection& connection, const std::vector<PropertyRow>& rows) {
    connection.Run("begin immediate");
    bench::Statement update(connection, "update Columns set Position=? where ColumnID=?");
    for (int position = 0; const PropertyRow& row : rows) {
        update.Bind(1, ++position);
        update.Bind(2, row.identifier);
        update.Run();
    }
    connection.Run("commit");
}

// Makes one table of all, which holds so many of their columns.
void MakeOneTable(const std::string& file, int columns) {
    bench::Connection(file).Run(
        "begin; delete from Tables where TabID > 1; delete from Indices where TabID > 1; "
        "delete from IndexColumns where IndexID > 3; delete from ForeignKeys; delete from ForeignKeyColumns; "
        "delete from Columns where ColumnID > " +
        std::to_string(columns) +
        "; update Columns set TabID = 1, Position = ColumnID, ColumnName = printf('COLUMN_%05d', ColumnID); "
        "commit");
}

double FillAndPaint(QTreeView& list, const std::function<void()>& fill) {
    return bench::Seconds([&] {
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

bench::Pair MeasureFilling(frmMain& window, int columns) {
    auto& pane = *window.findChild<PropertiesPane*>();
    ListView& list = pane.View();
    const BrowserRow table{.key = TableKey(1), .text = "TABLE_00001", .description = {}, .tag = {}};
    return bench::Compare(
        bench::RoundsFor(columns),
        [&] {
            pane.Show(nullptr);
            QApplication::processEvents();
            const double seconds = FillAndPaint(list, [&] { pane.Show(&table); });
            Require(list.isVisible() && list.model()->rowCount() == columns,
                    "The pane does not show the table.");
            return seconds;
        },
        [&] { return FillPlainList(TextsOf(*list.model()), list.size()); });
}

bench::Pair MeasureMoving(ComponentState& state, int columns) {
    const std::string copy = state.Database().Path() + ".copy";
    std::filesystem::copy_file(state.Database().Path(), copy);
    bench::Connection bare(copy);
    PropertiesList list(state);
    list.Fill(PropertiesList::Table{1, "TABLE_00001"});
    const auto last = static_cast<std::size_t>(columns) - 1;
    const int rounds = bench::RoundsFor(columns);
    const bench::Pair seconds = bench::Compare(
        rounds,
        [&] {
            bool isMoved = false;
            const double time = bench::Seconds([&] { isMoved = list.MoveColumn(last, 0); });
            Require(isMoved, "The column does not move.");
            return time;
        },
        [&] { return bench::Seconds([&] { WritePositions(bare, list.Rows()); }); });
    Require(bare.RowsTouched() == rounds * columns, "The bare transaction writes something else.");
    return seconds;
}

void Measure(int columns) {
    const bench::Folder folder;
    const std::string workspace = folder / "w";
    qputenv("XDG_CONFIG_HOME", (folder / "config").c_str());
    const auto frontend = bench::GenerateWorkspace(
        TESSEL_SHARE, workspace, (columns + bench::columnsPerTable - 1) / bench::columnsPerTable);
    MakeOneTable(bench::SchemaFile(workspace), columns);
    ComponentState state;
    state.questions = std::make_shared<QueuedQuestions>();
    state.loadMainWindow = LoadMainWindow;
    bench::OpenEditor(state, frontend);
    bench::PrintMilliseconds("properties of a table (columns)", columns,
                             MeasureFilling(dynamic_cast<frmMain&>(*state.window), columns), "plain list");
    bench::PrintMilliseconds("last column to the front (columns)", columns, MeasureMoving(state, columns),
                             "bare transaction");
    state.window.reset();
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int count = 1;
    QApplication application(count, argv);
    return tessel::bench::Run(argc, argv, Measure);
}

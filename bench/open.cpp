// Measures the window on generated schemas: its start until the list is painted, RefreshBrowser, and what the
// open window holds in memory; against a bare list of the same rows that are read and sorted by themselves:
// bench_open [TABLES...]

#include <malloc.h>
#include <sqlite3.h>

#include <QApplication>
#include <QPaintEvent>
#include <QTreeWidget>
#include <algorithm>

#include "bench.h"
#include "engine/queued_questions.h"
#include "generate_schema.h"
#include "ui/main/frm_main.h"

namespace {

using namespace tessel;

// Notes when the list is painted with rows in it.
class PaintWatch : public QObject {
  public:
    PaintWatch() { qApp->installEventFilter(this); }

    void WaitForPaint() {
        while (!isPainted_) QApplication::processEvents();
    }

    bool eventFilter(QObject* object, QEvent* event) override {
        const auto* list = qobject_cast<QTreeView*>(object->parent());
        if (event->type() == QEvent::Paint && list && list->objectName() == "lvBrowser" &&
            list->model()->rowCount() > 0)
            isPainted_ = true;
        return false;
    }

  private:
    bool isPainted_ = false;
};

// What any window with a list of the tables must do: read the rows, sort them, put them in a list, paint it.
class BareWindow {
  public:
    explicit BareWindow(std::string file) : file_(std::move(file)) {
        list_.setObjectName("lvBrowser");
        list_.setColumnCount(2);
        list_.setUniformRowHeights(true);
        list_.resize(400, 800);
        list_.show();
    }

    void Fill() {
        list_.clear();
        QList<QTreeWidgetItem*> items;
        for (const auto& [name, comment] : ReadSorted()) items.append(new QTreeWidgetItem({name, comment}));
        PaintWatch watch;
        list_.addTopLevelItems(items);
        watch.WaitForPaint();
    }

  private:
    using Rows = std::vector<std::pair<QString, QString>>;

    Rows ReadSorted() {
        sqlite3* database = nullptr;
        sqlite3_stmt* rows = nullptr;
        sqlite3_open(file_.c_str(), &database);
        sqlite3_prepare_v2(database, "select * from Tables", -1, &rows, nullptr);
        Rows read;
        const auto text = [&](int column) {
            return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(rows, column)));
        };
        while (sqlite3_step(rows) == SQLITE_ROW) read.emplace_back(text(1), text(3));
        sqlite3_finalize(rows);
        sqlite3_close(database);
        std::ranges::sort(read);
        return read;
    }

    std::string file_;
    QTreeWidget list_;
};

double BytesHeld() {
    const auto heap = mallinfo2();
    return static_cast<double>(heap.uordblks + heap.hblkhd);
}

struct Round {
    bench::Pair start;
    bench::Pair refresh;
    bench::Pair bytes;
};

void MeasureWindow(const std::shared_ptr<host::Frontend>& frontend, Round& round) {
    const double before = BytesHeld();
    ComponentState state;
    state.questions = std::make_shared<QueuedQuestions>();
    state.loadMainWindow = LoadMainWindow;
    round.start.own = bench::Seconds([&] {
        PaintWatch watch;
        bench::OpenEditor(state, frontend);
        watch.WaitForPaint();
    });
    round.bytes.own = BytesHeld() - before;
    round.refresh.own = bench::Seconds([&] {
        PaintWatch watch;
        state.window->RefreshBrowser();
        watch.WaitForPaint();
    });
    state.window.reset();
}

void MeasureBare(const std::string& file, Round& round) {
    const double before = BytesHeld();
    std::unique_ptr<BareWindow> window;
    round.start.bound = bench::Seconds([&] {
        window = std::make_unique<BareWindow>(file);
        window->Fill();
    });
    round.bytes.bound = BytesHeld() - before;
    round.refresh.bound = bench::Seconds([&] { window->Fill(); });
}

bench::Pair MedianOf(const std::vector<Round>& rounds, bench::Pair Round::*figure) {
    std::vector<double> own;
    std::vector<double> bound;
    for (const Round& round : rounds) {
        own.push_back((round.*figure).own);
        bound.push_back((round.*figure).bound);
    }
    return {bench::Median(own), bench::Median(bound)};
}

void Measure(int tables) {
    const bench::Folder folder;
    const std::string workspace = folder / "w";
    qputenv("XDG_CONFIG_HOME", (folder / "config").c_str());
    const auto frontend = bench::GenerateWorkspace(TESSEL_SHARE, workspace, tables);
    std::vector<Round> rounds(static_cast<std::size_t>(bench::RoundsFor(tables)));
    for (Round& round : rounds) {
        MeasureWindow(frontend, round);
        MeasureBare(bench::SchemaFile(workspace), round);
    }
    bench::PrintMilliseconds("start to painted list", tables, MedianOf(rounds, &Round::start),
                             "bare list, shown and filled");
    bench::PrintMilliseconds("RefreshBrowser", tables, MedianOf(rounds, &Round::refresh),
                             "bare list, filled");
    const bench::Pair bytes = MedianOf(rounds, &Round::bytes);
    bench::PrintFigure("memory of the window, a table", tables, {bytes.own / tables, bytes.bound / tables},
                       "bytes", "bare list");
    const auto fileSize = static_cast<double>(std::filesystem::file_size(bench::SchemaFile(workspace)));
    bench::PrintFigure("peak memory of the window", tables, {bench::PeakMegabytes(), fileSize / 1e6}, "MB",
                       "size of the database");
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int count = 1;
    QApplication application(count, argv);
    return tessel::bench::Run(argc, argv, Measure);
}

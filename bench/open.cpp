// Measures how long a generated schema takes from the start of the window to its first painted list, against
// reading and sorting the same rows alone: bench_open [TABLES...]

#include <fmt/format.h>

#include <QApplication>
#include <QPaintEvent>
#include <algorithm>
#include <chrono>
#include <limits>

#include "bench.h"
#include "engine/queued_questions.h"
#include "engine/tessel_engine.h"
#include "generate_schema.h"
#include "platform/text/utf8.h"
#include "ui/main/frm_main.h"
#include "workbench/stand_alone_frontend.h"

namespace {

using namespace tessel;
using Clock = std::chrono::steady_clock;

constexpr int rounds = 5;

double SecondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// Notes when the list is first painted with rows in it.
class FirstPaint : public QObject {
  public:
    explicit FirstPaint(Clock::time_point start) : start_(start) { qApp->installEventFilter(this); }

    [[nodiscard]] double Seconds() const { return seconds_; }

    bool eventFilter(QObject* object, QEvent* event) override {
        const auto* list = qobject_cast<QTreeView*>(object->parent());
        if (seconds_ == 0 && event->type() == QEvent::Paint && list && list->objectName() == "lvBrowser" &&
            list->model()->rowCount() > 0)
            seconds_ = SecondsSince(start_);
        return false;
    }

  private:
    Clock::time_point start_;
    double seconds_ = 0;
};

std::shared_ptr<host::Frontend> Generate(const std::string& workspace, int tables) {
    auto folder = workbench::WorkspaceFolder::Create(workspace, "Main");
    const std::string schemas = workspace + "/Projects/Main/DBSCHEMA";
    std::filesystem::create_directory(schemas);
    bench::GenerateSchema(TESSEL_SHARE, schemas + "/Main.mdb", tables);
    return std::make_shared<workbench::StandAloneFrontend>(std::move(folder), "Main",
                                                           std::string(TESSEL_SHARE));
}

struct Figures {
    double painted = std::numeric_limits<double>::infinity();  // seconds, the best of all rounds
    double loaded = std::numeric_limits<double>::infinity();
    double bound = std::numeric_limits<double>::infinity();
};

void OpenWindow(const std::shared_ptr<host::Frontend>& frontend, Figures& figures) {
    ComponentState state;
    state.questions = std::make_shared<QueuedQuestions>();
    state.loadMainWindow = LoadMainWindow;
    const auto start = Clock::now();
    const FirstPaint painted(start);
    if (TesselEngine(state).Run(frontend, Missing{}, Missing{}) != 0)
        throw std::runtime_error("The generated schema does not open.");
    figures.loaded = std::min(figures.loaded, SecondsSince(start));
    while (painted.Seconds() == 0) QApplication::processEvents();
    figures.painted = std::min(figures.painted, painted.Seconds());
    state.window.reset();
}

// What any list of the tables must do: open the database, read the rows, sort them.
void ReadAndSort(const std::string& file, Figures& figures) {
    const auto start = Clock::now();
    const auto database = db::Database::Open(file);
    std::vector<std::pair<std::string, std::string>> rows;
    for (auto row = database->Select("select * from Tables"); row.Next();)
        rows.emplace_back(row.Text("TableName"), row.Text("Comments"));
    std::ranges::sort(rows, [](const auto& a, const auto& b) { return text::TextLess(a.first, b.first); });
    figures.bound = std::min(figures.bound, SecondsSince(start));
}

Figures Measure(int tables) {
    const bench::Folder folder;
    const std::string workspace = folder / "w";
    qputenv("XDG_CONFIG_HOME", (folder / "config").c_str());
    const auto frontend = Generate(workspace, tables);
    Figures figures;
    for (int i = 0; i < rounds; ++i) {
        OpenWindow(frontend, figures);
        ReadAndSort(workspace + "/Projects/Main/DBSCHEMA/Main.mdb", figures);
    }
    return figures;
}

void Report(const std::vector<int>& sizes) {
    fmt::print("{:>7} {:>10} {:>9} {:>9} {:>6} {:>8}\n", "tables", "painted ms", "loaded ms", "bound ms",
               "ratio", "peak MB");
    std::vector<double> times;
    for (const int tables : sizes) {
        const Figures f = Measure(tables);
        times.push_back(f.painted);
        fmt::print("{:>7} {:>10.1f} {:>9.1f} {:>9.1f} {:>6.2f} {:>8.1f}\n", tables, f.painted * 1000,
                   f.loaded * 1000, f.bound * 1000, f.painted / f.bound, bench::PeakMegabytes());
    }
    bench::PrintGrowth(sizes, times);
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int count = 1;
    QApplication application(count, argv);
    return tessel::bench::Run(argc, argv, Report);
}

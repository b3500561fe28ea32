// Measures the diagram: bench_diagram [TABLES...]
//
// First how long a frame takes with 5,000 boxes and 10,000 links while the user scrolls, zooms and drags a
// box, and how long the file takes. Then how long the placement takes, for 100, 1,000 and 3,000 tables or
// those on the command line, against the programs dot and sfdp of Graphviz on the same graph, lines included,
// where they are installed. They are given up after two minutes.

#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <optional>
#include <random>

#include "bench.h"
#include "platform/diagram/place.h"
#include "ui/controls/diagram.h"
#include "ui/controls/diagram_view.h"

namespace {

using namespace tessel;

constexpr int boxes = 5000;
constexpr int links = 10000;
constexpr int frames = 60;

double Seconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Tables that refer to others nearby and, every eighth link, to one of few that many refer to.
diagram::Diagram Schema(int tables, int keys) {
    std::mt19937 random(7);
    const auto below = [&](int end) { return int(random() % unsigned(end)); };
    diagram::Diagram schema;
    for (int i = 0; i < tables; ++i) {
        const std::string name = "TABLE_" + std::string(std::size_t(below(12)), 'X') + std::to_string(i);
        schema.boxes.push_back({"t" + std::to_string(i), name, "", {0, 0, 2.0 * double(name.size()), 8}});
    }
    for (int i = 0; i < keys; ++i) {
        const int from = 1 + below(tables - 1);
        const int to = i % 8 == 0 ? below(from) / 16 : std::max(0, from - 1 - below(20));
        const std::string number = std::to_string(i);
        schema.links.push_back(
            {"k" + number, "FK" + number, "t" + std::to_string(from), "t" + std::to_string(to)});
    }
    return schema;
}

void Fill(TDiagram& diagram) {
    const diagram::Diagram schema = Schema(boxes, links);
    diagram.SuspendDrawing();
    int number = 0;
    for (const auto& box : schema.boxes) {
        diagram.AddBox(box.key, box.caption, {number % 70 * 60.0, number / 70 * 20.0});
        diagram.SetBoxWidth(box.key, box.rect.width);
        ++number;
    }
    for (const auto& link : schema.links) diagram.AddLink(link.key, link.from, link.to, link.caption);
    diagram.ResumeDrawing();
}

struct FrameTimes {
    double median;
    double worst;
};

FrameTimes Measure(DiagramView& view, const std::function<void(int frame)>& step) {
    std::vector<double> times;
    for (int i = 0; i < frames; ++i)
        times.push_back(Seconds([&] {
            step(i);
            QApplication::processEvents();
        }));
    view.viewport()->repaint();
    std::ranges::sort(times);
    return {times[frames / 2] * 1000, times.back() * 1000};
}

void Send(DiagramView& view, QEvent::Type type, QPoint place) {
    const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    const auto held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, place, view.viewport()->mapToGlobal(place), button, held, Qt::NoModifier);
    QApplication::sendEvent(view.viewport(), &event);
}

void ReportFrames() {
    const text::Texts texts(TESSEL_SHARE "/texts", "en");
    TDiagram diagram(texts);
    diagram.resize(1600, 1000);
    diagram.show();
    const double filled = Seconds([&] { Fill(diagram); });
    auto& view = *diagram.findChild<DiagramView*>("DiagramView");
    const auto print = [](const char* what, int zoom, FrameTimes times) {
        fmt::print("{:>10} at {:>3} %: {:6.1f} ms a frame, {:6.1f} ms the slowest\n", what, zoom,
                   times.median, times.worst);
    };
    fmt::print("{} boxes, {} links: filled in {:.0f} ms\n", boxes, links, filled * 1000);
    diagram.ZoomToFit();
    for (const int zoom : {diagram.Zoom(), 40, 100}) {
        diagram.SetZoom(zoom);
        print("scrolling", zoom, Measure(view, [&](int i) {
                  view.horizontalScrollBar()->setValue(view.horizontalScrollBar()->value() + 7);
                  view.verticalScrollBar()->setValue(view.verticalScrollBar()->value() + (i % 2 ? 5 : -5));
              }));
        print("repainting", zoom, Measure(view, [&](int) { view.viewport()->update(); }));
        diagram.BringIntoView("t2500");
        const QPoint start = view.SeenAt("t2500").center();
        Send(view, QEvent::MouseButtonPress, start);
        print("dragging", zoom, Measure(view, [&](int i) {
                  Send(view, QEvent::MouseMove, start + QPoint(12 + i * 4, i * 3));
              }));
        const double dropped = Seconds([&] { Send(view, QEvent::MouseButtonRelease, start); });
        fmt::print("{:>10} at {:>3} %: {:6.1f} ms\n", "dropping", zoom, dropped * 1000);
    }
    print("zooming", 100, Measure(view, [&](int i) { diagram.SetZoom(10 + i * 3); }));

    const bench::Folder folder;
    const double saved = Seconds([&] { diagram.SaveFile(folder / "a.dgm.xml"); });
    const double savedAgain = Seconds([&] { diagram.SaveFile(folder / "a.dgm.xml"); });
    diagram.Clear();
    const double loaded = Seconds([&] { diagram.LoadFile(folder / "a.dgm.xml"); });
    fmt::print("saved in {:.0f} ms, over an earlier file in {:.0f} ms, loaded in {:.0f} ms\n", saved * 1000,
               savedAgain * 1000, loaded * 1000);
}

void WriteGraph(const diagram::Diagram& schema, const std::string& file) {
    std::ofstream out(file);
    out << "digraph { rankdir=RL; splines=true; overlap=prism; node [shape=box, label=\"\", "
           "fixedsize=true];\n";
    for (const auto& box : schema.boxes)
        out << box.key << " [width=" << Outline(box).width / 18 << ", height=" << Outline(box).height / 18
            << "];\n";
    for (const auto& link : schema.links) out << link.from << " -> " << link.to << ";\n";
    out << "}\n";
}

// In seconds; nothing when the program is missing, fails or takes too long.
std::optional<double> TimeOf(const std::string& program, const std::string& graph) {
    int result = 0;
    const std::string command = "timeout 120 " + program + " -Tplain " + graph + " >/dev/null 2>&1";
    const double time = Seconds([&] { result = std::system(command.c_str()); });
    return result == 0 ? std::optional(time) : std::nullopt;
}

std::string Ratio(double own, std::optional<double> other) {
    return other ? fmt::format("{:.2f} s ({:.2f})", *other, own / *other) : "-";
}

void Report(const std::vector<int>& sizes) {
    ReportFrames();
    const bench::Folder folder;
    fmt::print("{:>7} {:>7} {:>9} {:>18} {:>18}\n", "tables", "links", "placed", "dot (ratio)",
               "sfdp (ratio)");
    for (const int tables : sizes) {
        diagram::Diagram schema = Schema(tables, tables * 3 / 2);
        WriteGraph(schema, folder / "graph.dot");
        const double own = Seconds([&] { PlaceBoxes(schema); });
        fmt::print("{:>7} {:>7} {:>7.2f} s {:>18} {:>18}\n", tables, schema.links.size(), own,
                   Ratio(own, TimeOf("dot", folder / "graph.dot")),
                   Ratio(own, TimeOf("sfdp", folder / "graph.dot")));
    }
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    if (argc > 1) return tessel::bench::Run(argc, argv, Report);
    std::vector<std::string> sizes{"bench_diagram", "100", "1000", "3000"};
    std::vector<char*> arguments;
    for (auto& size : sizes) arguments.push_back(size.data());
    return tessel::bench::Run(int(arguments.size()), arguments.data(), Report);
}

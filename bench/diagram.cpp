// Measures the diagram of schemas with 1.3 links a box: bench_diagram [TABLES...]
//
// How long the placement takes, against the program sfdp of Graphviz on the same graph, lines included; how
// long it takes to fill and to load the view, and a frame of it while the user scrolls, with all in view, and
// drags a box, against a bare painter that draws the same rectangles, names and straight lines. Nothing is
// placed beyond 10,000 tables.

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <fstream>
#include <functional>
#include <random>
#include <unordered_map>

#include "bench.h"
#include "platform/diagram/place.h"
#include "ui/controls/diagram.h"
#include "ui/controls/diagram_view.h"

namespace {

using namespace tessel;

constexpr int frames = 30;
constexpr int mostPlaced = 10000;
constexpr QSize viewSize(1600, 1000);

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

// In rows, as the boxes of a schema that nobody has arranged.
QPointF PlaceOf(int number) { return {number % 70 * 60.0, number / 70 * 20.0}; }

void Fill(TDiagram& diagram, const diagram::Diagram& schema) {
    diagram.SuspendDrawing();
    for (int number = 0; const auto& box : schema.boxes) {
        diagram.AddBox(box.key, box.caption, PlaceOf(number++));
        diagram.SetBoxWidth(box.key, box.rect.width);
    }
    for (const auto& link : schema.links) diagram.AddLink(link.key, link.from, link.to, link.caption);
    diagram.ResumeDrawing();
    QApplication::processEvents();
}

// Everything, by a painter that clips what lies outside of a picture of the view's size.
class BarePicture {
  public:
    BarePicture(const diagram::Diagram& schema, double zoom)
        : picture_(viewSize, QImage::Format_ARGB32_Premultiplied) {
        std::unordered_map<std::string, QPointF> places;
        for (int number = 0; const auto& box : schema.boxes) {
            const QRectF rect(PlaceOf(number++) * zoom, QSizeF(box.rect.width, box.rect.height) * zoom);
            places[box.key] = rect.center();
            boxes_.emplace_back(rect, QString::fromStdString(box.caption));
        }
        for (const auto& link : schema.links) lines_.append({places.at(link.from), places.at(link.to)});
    }

    double Draw() {
        return bench::Seconds([&] {
            picture_.fill(Qt::white);
            QPainter painter(&picture_);
            painter.setRenderHint(QPainter::Antialiasing);
            const QRectF seen(0, 0, viewSize.width(), viewSize.height());
            painter.drawLines(lines_);
            for (const auto& [rect, name] : boxes_) {
                if (!seen.intersects(rect)) continue;
                painter.fillRect(rect, Qt::lightGray);
                painter.drawRect(rect);
                painter.drawText(rect, Qt::AlignCenter, name);
            }
        });
    }

  private:
    QImage picture_;
    std::vector<std::pair<QRectF, QString>> boxes_;
    QList<QLineF> lines_;
};

void Send(DiagramView& view, QEvent::Type type, QPoint place) {
    const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    const auto held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, place, view.viewport()->mapToGlobal(place), button, held, Qt::NoModifier);
    QApplication::sendEvent(view.viewport(), &event);
}

// The median of many frames, each after a step.
double Frame(const std::function<void(int frame)>& step) {
    std::vector<double> times;
    for (int i = 0; i < frames; ++i)
        times.push_back(bench::Seconds([&] {
            step(i);
            QApplication::processEvents();
        }));
    return bench::Median(times);
}

void MeasureFrames(TDiagram& diagram, const diagram::Diagram& schema) {
    const int tables = static_cast<int>(schema.boxes.size());
    auto& view = *diagram.findChild<DiagramView*>("DiagramView");
    const auto print = [&](const char* what, double own) {
        const double pixels = 4 * diagram.Zoom() / 100.0;  // of a unit
        BarePicture bare(schema, pixels);
        bench::PrintMilliseconds(what, tables,
                                 {own, bench::Compare(
                                           5, [] { return 0; }, [&] { return bare.Draw(); })
                                           .bound},
                                 "bare painter");
    };
    diagram.ZoomToFit();
    print("diagram frame, all in view", Frame([&](int) { view.viewport()->update(); }));
    diagram.SetZoom(100);
    print("diagram frame, scrolling", Frame([&](int i) {
              view.horizontalScrollBar()->setValue(view.horizontalScrollBar()->value() + 7);
              view.verticalScrollBar()->setValue(view.verticalScrollBar()->value() + (i % 2 ? 5 : -5));
          }));
    const std::string middle = "t" + std::to_string(tables / 2);
    diagram.BringIntoView(middle);
    const QPoint start = view.SeenAt(middle).center();
    Send(view, QEvent::MouseButtonPress, start);
    print("diagram frame, dragging",
          Frame([&](int i) { Send(view, QEvent::MouseMove, start + QPoint(12 + i * 4, i * 3)); }));
    Send(view, QEvent::MouseButtonRelease, start);
}

void MeasureView(const diagram::Diagram& schema) {
    const int tables = static_cast<int>(schema.boxes.size());
    const text::Texts texts(TESSEL_SHARE "/texts", "en");
    TDiagram diagram(texts);
    diagram.resize(viewSize);
    diagram.show();
    QApplication::processEvents();
    bench::PrintMilliseconds("diagram filled", tables, {bench::Seconds([&] { Fill(diagram, schema); }), 0},
                             "");
    MeasureFrames(diagram, schema);
    const bench::Folder folder;
    diagram.SaveFile(folder / "a.dgm.xml");
    diagram.Clear();
    bench::PrintMilliseconds("diagram file loaded", tables,
                             {bench::Seconds([&] { diagram.LoadFile(folder / "a.dgm.xml"); }), 0}, "");
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

// In seconds; 0 when the program is missing, fails or takes more than a minute.
double TimeOf(const std::string& program, const std::string& graph) {
    int result = 0;
    const std::string command = "timeout 60 " + program + " -Tplain " + graph + " >/dev/null 2>&1";
    const double time = bench::Seconds([&] { result = std::system(command.c_str()); });
    return result == 0 ? time : 0;
}

void MeasurePlacing(diagram::Diagram schema) {
    const bench::Folder folder;
    WriteGraph(schema, folder / "graph.dot");
    const double own = bench::Seconds([&] { PlaceBoxes(schema); });
    bench::PrintMilliseconds("diagram placed", static_cast<int>(schema.boxes.size()),
                             {own, TimeOf("sfdp", folder / "graph.dot")}, "sfdp of Graphviz");
}

void Measure(int tables) {
    const diagram::Diagram schema = Schema(tables, tables * 13 / 10);
    MeasureView(schema);
    if (tables <= mostPlaced) MeasurePlacing(schema);
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int count = 1;
    const QApplication application(count, argv);
    return tessel::bench::Run(argc, argv, Measure);
}

#include "platform/diagram/svg.h"

#include <fmt/format.h>

#include <cmath>
#include <iterator>

namespace tessel::diagram {

namespace {

constexpr double pixelsOfUnit = 4;
constexpr double smallestScale = 0.65;  // below it captions can no longer be read
constexpr double margin = 3;            // around everything, in units

double Rounded(double units) { return std::round(units * pixelsOfUnit * 10) / 10; }

class Drawing {
  public:
    Drawing(const Diagram& diagram, const std::string& title) : bounds_(Bounds(diagram)) {
        Start(title);
        for (const Link& link : diagram.links)
            if (!link.points.empty()) Draw(link);
        for (const Box& box : diagram.boxes) Draw(box);
        svg_ += "</svg>";
    }

    std::string Take() { return std::move(svg_); }

  private:
    template <typename... Values>
    void Add(fmt::format_string<Values...> format, Values&&... values) {
        fmt::format_to(std::back_inserter(svg_), format, std::forward<Values>(values)...);
    }

    void Start(const std::string& title) {
        const double width = Rounded(bounds_.width + 2 * margin);
        const double height = Rounded(bounds_.height + 2 * margin);
        Add(R"(<svg xmlns="http://www.w3.org/2000/svg" role="group" aria-label="{0}" )"
            R"(width="{1}" height="{2}" style="min-width:{3}px" viewBox="0 0 {1} {2}">)"
            "\n",
            Escaped(title), width, height, std::round(width * smallestScale));
        Add(R"(<marker id="arrow" viewBox="0 0 10 8" refX="9.5" refY="4" markerWidth="10" markerHeight="8" )"
            R"(markerUnits="userSpaceOnUse" orient="auto"><path d="M0 0 10 4 0 8 2 4z" fill="currentColor"/>)"
            "</marker>\n");
    }

    void Draw(const Link& link) {
        svg_ += "<path class=\"link\" fill=\"none\" stroke=\"currentColor\" marker-end=\"url(#arrow)\" d=\"M";
        for (const Point& point : link.points) Add("{} {} ", X(point.x), Y(point.y));
        Add("\"><title>{}</title></path>\n", Escaped(link.caption));
    }

    void Draw(const Box& box) {
        const std::string caption = Escaped(box.caption);
        Add("<a class=\"box\" href=\"#Table:{0}\" data-name=\"{0}\" data-key=\"{1}\" "
            "onclick=\"Box_onClick(this.dataset.name,this.dataset.key,'');return false\">",
            caption, Escaped(box.key));
        if (!box.comment.empty()) Add("<title>{}</title>", Escaped(box.comment));
        const Rect& rect = box.rect;
        Add(R"(<rect x="{}" y="{}" width="{}" height="{}" rx="4" fill="#fff" stroke="currentColor"/>)",
            X(rect.x), Y(rect.y), Rounded(rect.width), Rounded(rect.height));
        Add(R"(<text x="{}" y="{}" font-size="13" text-anchor="middle" dominant-baseline="central">{}</text></a>)"
            "\n",
            X(rect.x + rect.width / 2), Y(rect.y + rect.height / 2), caption);
    }

    double X(double x) const { return Rounded(x - bounds_.x + margin); }
    double Y(double y) const { return Rounded(y - bounds_.y + margin); }

    Rect bounds_;
    std::string svg_;
};

}  // namespace

std::string Svg(const Diagram& diagram, const std::string& title) { return Drawing(diagram, title).Take(); }

std::string Escaped(const std::string& text) {
    std::string escaped;
    escaped.reserve(text.size());
    for (const char character : text) {
        switch (character) {
            case '&':
                escaped += "&amp;";
                break;
            case '<':
                escaped += "&lt;";
                break;
            case '>':
                escaped += "&gt;";
                break;
            case '"':
                escaped += "&quot;";
                break;
            default:
                escaped += character;
        }
    }
    return escaped;
}

}  // namespace tessel::diagram

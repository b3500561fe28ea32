#include "platform/diagram/svg.h"

#include <fmt/format.h>

#include <cmath>
#include <iterator>

#include "platform/diagram/look.h"
#include "platform/xml/characters.h"

namespace tessel::diagram {

namespace {

constexpr double smallestScale = 0.65;  // below it captions can no longer be read

double Rounded(double units) { return std::round(units * pixelsOfUnit * 10) / 10; }

enum class For { Page, File };

class Drawing {
  public:
    Drawing(const Diagram& diagram, const std::string& title, For use)
        : use_(use),
          bounds_(Bounds(diagram)),
          line_(use == For::Page ? "currentColor" : Hex(lightLook.line)) {
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

    static std::string Hex(std::uint32_t colour) { return fmt::format("#{:06x}", colour); }

    void Start(const std::string& title) {
        const double width = Rounded(bounds_.width + 2 * margin);
        const double height = Rounded(bounds_.height + 2 * margin);
        Add(R"(<svg xmlns="http://www.w3.org/2000/svg" role="group" aria-label="{0}" )"
            R"(width="{1}" height="{2}" style="min-width:{3}px" viewBox="0 0 {1} {2}"{4}>)"
            "\n",
            Escaped(title), width, height, std::round(width * smallestScale),
            use_ == For::File ? " font-family=\"sans-serif\"" : "");
        if (use_ == For::File)
            Add(R"(<rect width="100%" height="100%" fill="{}"/>)"
                "\n",
                Hex(lightLook.paper));
        Add(R"(<marker id="arrow" viewBox="0 0 10 8" refX="9.5" refY="4" markerWidth="10" markerHeight="8" )"
            R"(markerUnits="userSpaceOnUse" orient="auto"><path d="M0 0 10 4 0 8 2 4z" fill="{}"/>)"
            "</marker>\n",
            line_);
    }

    void Draw(const Link& link) {
        Add(R"-(<path class="link" fill="none" stroke="{}" marker-end="url(#arrow)" d="M)-", line_);
        for (const Point& point : link.points) Add("{} {} ", X(point.x), Y(point.y));
        Add("\"><title>{}</title></path>\n", Escaped(link.caption));
    }

    void Draw(const Box& box) {
        Open(box);
        if (!box.comment.empty()) Add("<title>{}</title>", Escaped(box.comment));
        const bool isPage = use_ == For::Page;
        const Rect rect = Outline(box);
        Add(R"(<rect x="{}" y="{}" width="{}" height="{}" rx="4" fill="{}" stroke="{}"/>)", X(rect.x),
            Y(rect.y), Rounded(rect.width), Rounded(rect.height),
            isPage ? "#fff" : Hex(FillColour(box.colour, lightLook)),
            isPage ? line_ : Hex(BorderColour(box.colour)));
        Add(R"(<text x="{}" y="{}" font-size="13" text-anchor="middle" dominant-baseline="central"{}>{}</text>)",
            X(rect.Center().x), Y(rect.Center().y),
            isPage ? "" : fmt::format(" fill=\"{}\"", Hex(lightLook.ink)), Escaped(box.caption));
        svg_ += isPage ? "</a>\n" : "</g>\n";
    }

    void Open(const Box& box) {
        if (use_ == For::File) {
            svg_ += "<g>";
            return;
        }
        Add("<a class=\"box\" href=\"#Table:{0}\" data-name=\"{0}\" data-key=\"{1}\" "
            "onclick=\"Box_onClick(this.dataset.name,this.dataset.key,'');return false\">",
            Escaped(box.caption), Escaped(box.key));
    }

    double X(double x) const { return Rounded(x - bounds_.x + margin); }
    double Y(double y) const { return Rounded(y - bounds_.y + margin); }

    For use_;
    Rect bounds_;
    std::string line_;  // the colour of lines
    std::string svg_;
};

}  // namespace

std::string Svg(const Diagram& diagram, const std::string& title) {
    return Drawing(diagram, title, For::Page).Take();
}

std::string SvgFile(const Diagram& diagram, const std::string& title) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + Drawing(diagram, title, For::File).Take() + "\n";
}

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
                escaped += xml::IsHeld(character) ? character : ' ';
        }
    }
    return escaped;
}

}  // namespace tessel::diagram

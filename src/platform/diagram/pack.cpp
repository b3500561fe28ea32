#include "platform/diagram/pack.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

namespace tessel::diagram {

namespace {

constexpr double aspect = 1.5;

// What is taken so far: from each x on, up to the next one, everything above `bottom`.
struct Step {
    double x;
    double bottom;
};

class Skyline {
  public:
    explicit Skyline(double width) : width_(width) {}

    // Where a rectangle of that size stands highest, and there leftmost.
    void Place(Rect& rect, double gap) {
        const double width = rect.width + gap;
        rect.y = std::numeric_limits<double>::max();
        for (const Step& step : steps_) {
            if (step.x > 0 && step.x + width > width_) break;
            const double top = TopAt(step.x, width);
            if (top < rect.y) rect.x = step.x, rect.y = top;
        }
        Take(rect.x, width, rect.y + rect.height + gap);
    }

  private:
    [[nodiscard]] double TopAt(double left, double width) const {
        double top = 0;
        for (std::size_t i = 0; i < steps_.size() && steps_[i].x < left + width; ++i)
            if (i + 1 == steps_.size() || steps_[i + 1].x > left) top = std::max(top, steps_[i].bottom);
        return top;
    }

    void Take(double left, double width, double bottom) {
        std::vector<Step> steps;
        double behind = 0;  // what is taken right of the rectangle
        for (const Step& step : steps_) {
            if (step.x < left) steps.push_back(step);
            if (step.x <= left + width) behind = step.bottom;
        }
        steps.push_back({left, bottom});
        steps.push_back({left + width, behind});
        for (const Step& step : steps_)
            if (step.x > left + width) steps.push_back(step);
        steps_ = std::move(steps);
    }

    double width_;
    std::vector<Step> steps_{{0, 0}};
};

double WantedWidth(const std::vector<Rect>& rects, double gap) {
    double area = 0;
    double widest = 0;
    for (const Rect& rect : rects) {
        area += (rect.width + gap) * (rect.height + gap);
        widest = std::max(widest, rect.width + gap);
    }
    return std::max(widest, std::sqrt(area * aspect) * 1.05);
}

}  // namespace

void Pack(std::vector<Rect>& rects, double gap) {
    std::vector<Rect*> order;
    for (Rect& rect : rects) order.push_back(&rect);
    std::ranges::stable_sort(order, std::greater{}, [](const Rect* rect) { return rect->height; });
    Skyline skyline(WantedWidth(rects, gap));
    for (Rect* rect : order) skyline.Place(*rect, gap);
}

}  // namespace tessel::diagram

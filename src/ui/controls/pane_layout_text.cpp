#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "ui/controls/pane_layout.h"

// The text of an arrangement:
//
//     1:v(0.8,h(0.5,Browser+"Browser",Properties-"Properties"),Log*"Activity Log")
//
// The number is the form's version. h divides side by side, v one above the other, with the first part's
// share before the parts. A pane is visible (+), hidden (-) or maximised (*), and ends with its caption.

namespace tessel {

namespace {

constexpr std::string_view version = "1:";
constexpr char visibleMark = '+';
constexpr char hiddenMark = '-';
constexpr char maximisedMark = '*';
constexpr std::string_view escaped = "\\\"\n\r";
constexpr std::string_view escapes = "\\\"nr";

std::string Quoted(std::string_view text) {
    std::string quoted = "\"";
    for (const char character : text) {
        const auto place = escaped.find(character);
        if (place != std::string_view::npos) quoted += '\\';
        quoted += place == std::string_view::npos ? character : escapes[place];
    }
    return quoted + '"';
}

std::string Number(double value) {
    std::array<char, 32> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    return {digits.data(), end};
}

class Writer {
  public:
    explicit Writer(const PaneLayout& layout) : layout_(layout) {}

    [[nodiscard]] std::string Region(const PaneRegion& region) const {
        if (!region.IsDivided()) return region.pane.empty() ? "" : PaneOf(layout_.At(region.pane));
        const std::string first = Region(*region.first);
        const std::string second = Region(*region.second);
        if (first.empty() || second.empty()) return first + second;
        const char direction = region.direction == PaneDirection::SideBySide ? 'h' : 'v';
        return direction + ("(" + Number(region.share)) + "," + first + "," + second + ")";
    }

  private:
    [[nodiscard]] std::string PaneOf(const Pane& pane) const {
        const char mark = !pane.visible                      ? hiddenMark
                          : layout_.Maximised() == pane.name ? maximisedMark
                                                             : visibleMark;
        return pane.name + mark + Quoted(pane.caption);
    }

    const PaneLayout& layout_;
};

// Reads a text from front to back. What does not fit leaves a failure that every caller passes on.
class Reader {
  public:
    Reader(std::string_view text, const std::vector<Pane>& expected) : rest_(text) {
        for (const Pane& pane : expected) missing_.push_back(pane.name);
    }

    // Nothing when the text is damaged.
    [[nodiscard]] std::unique_ptr<PaneRegion> Layout() {
        if (!rest_.starts_with(version)) return nullptr;
        rest_.remove_prefix(version.size());
        auto region = Region(missing_.size());
        return missing_.empty() && rest_.empty() ? std::move(region) : nullptr;
    }

    std::vector<Pane> panes;
    std::string maximised;

  private:
    // A tree of n panes is at most n regions deep, which bounds the recursion.
    std::unique_ptr<PaneRegion> Region(std::size_t depth) {
        if (depth == 0) return nullptr;
        const std::string word = Word();
        auto region = std::make_unique<PaneRegion>();
        const bool read = Take('(') ? Division(word, *region, depth) : PaneNamed(word, *region);
        return read ? std::move(region) : nullptr;
    }

    bool Division(std::string_view direction, PaneRegion& region, std::size_t depth) {
        if ((direction != "h" && direction != "v") || !Share(region.share) || !Take(',')) return false;
        region.direction = direction == "h" ? PaneDirection::SideBySide : PaneDirection::Stacked;
        region.first = Region(depth - 1);
        if (!region.first || !Take(',')) return false;
        region.second = Region(depth - 1);
        if (!region.second || !Take(')')) return false;
        region.first->parent = region.second->parent = &region;
        return true;
    }

    bool PaneNamed(const std::string& name, PaneRegion& region) {
        const auto place = std::find(missing_.begin(), missing_.end(), name);
        if (place == missing_.end()) return false;
        missing_.erase(place);
        region.pane = name;
        Pane& pane = panes.emplace_back();
        pane.name = name;
        return Mark(pane) && Caption(pane.caption);
    }

    bool Mark(Pane& pane) {
        if (Take(maximisedMark)) return std::exchange(maximised, pane.name).empty();
        pane.visible = Take(visibleMark);
        return pane.visible || Take(hiddenMark);
    }

    bool Caption(std::string& caption) {
        if (!Take('"')) return false;
        while (!Take('"')) {
            const bool isEscape = Take('\\');
            if (rest_.empty()) return false;
            const auto place = isEscape ? escapes.find(rest_.front()) : 0;
            if (place == std::string_view::npos) return false;
            caption += isEscape ? escaped[place] : rest_.front();
            rest_.remove_prefix(1);
        }
        return true;
    }

    // Also false for NaN.
    bool Share(double& share) {
        const auto [end, error] = std::from_chars(rest_.data(), rest_.data() + rest_.size(), share);
        rest_.remove_prefix(static_cast<std::size_t>(end - rest_.data()));
        return error == std::errc() && share > 0 && share < 1;
    }

    std::string Word() {
        const auto end = std::find_if(rest_.begin(), rest_.end(), [](char character) {
            return std::string_view("(+-*").find(character) != std::string_view::npos;
        });
        const std::string word(rest_.begin(), end);
        rest_.remove_prefix(word.size());
        return word;
    }

    bool Take(char character) {
        if (!rest_.starts_with(character)) return false;
        rest_.remove_prefix(1);
        return true;
    }

    std::string_view rest_;
    std::vector<std::string> missing_;
};

}  // namespace

std::string PaneLayout::Export() const { return std::string(version) + Writer(*this).Region(*root_); }

bool PaneLayout::Import(std::string_view text) {
    Reader reader(text, panes_);
    auto root = reader.Layout();
    if (!root) return false;
    for (Pane& pane : reader.panes) At(pane.name) = std::move(pane);
    root_ = std::move(root);
    maximised_ = reader.maximised;
    return true;
}

}  // namespace tessel

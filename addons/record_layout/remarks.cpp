#include "remarks.h"

#include <algorithm>

#include "line_text.h"

namespace tessel::layout {

void Remarks::Add(Place place, Text text, std::vector<std::string> details) {
    Remark remark{place, text, std::move(details)};
    if (std::ranges::find(kept_, remark) != kept_.end()) return;
    ++count_;
    if (kept_.size() < mostKept) kept_.push_back(std::move(remark));
}

std::vector<Remark> Remarks::Sorted() const {
    std::vector<Remark> sorted = kept_;
    std::ranges::stable_sort(sorted, {}, &Remark::place);
    return sorted;
}

Complaint::Complaint(Text text, std::vector<std::string> details)
    : std::runtime_error(Phrase(Language::English, text, details)),
      text_(text),
      details_(std::move(details)) {}

std::string Shortened(const std::string& text) {
    constexpr std::size_t longest = 60;
    const std::string_view begin = FirstCharacters(text, longest);
    return begin.size() < text.size() ? std::string(begin) + "..." : text;
}

}  // namespace tessel::layout

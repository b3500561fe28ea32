#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

#include "texts.h"

namespace tessel::layout {

// Where something stands: the file by its place in Layout::files, the line from 1.
struct Place {
    int file = 0;
    int line = 0;

    auto operator<=>(const Place&) const = default;
};

// Something of the source that makes no column, and why.
struct Remark {
    Place place;
    Text text;
    std::vector<std::string> details;

    bool operator==(const Remark&) const = default;
};

// The first of them are kept in full, so that a file of rubbish makes no endless list; all are counted, but
// what a file gives cause for counts once, however often the file is copied.
class Remarks {
  public:
    static constexpr std::size_t mostKept = 1'000;

    void Add(Place place, Text text, std::vector<std::string> details = {});

    [[nodiscard]] std::size_t Count() const { return count_; }
    // By file and line; those of one line in the order of adding.
    [[nodiscard]] std::vector<Remark> Sorted() const;

  private:
    std::vector<Remark> kept_;
    std::size_t count_ = 0;
};

// The layout as a whole cannot be used; what() is the English text.
class Complaint : public std::runtime_error {
  public:
    explicit Complaint(Text text, std::vector<std::string> details = {});

    [[nodiscard]] std::string In(Language language) const { return Phrase(language, text_, details_); }

  private:
    Text text_;
    std::vector<std::string> details_;
};

// The text, or its beginning when it is long: enough to recognise it by.
[[nodiscard]] std::string Shortened(const std::string& text);

}  // namespace tessel::layout

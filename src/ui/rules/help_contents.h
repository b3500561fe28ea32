#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tessel {

// A page of the help.
struct HelpTopic {
    std::string page;  // its file's name without the ending
    std::string title;
    std::string text;           // Markdown
    std::vector<int> contexts;  // the numbers that open it
};

// The help in one language, read whole from a folder such as help/ja. The file help/contents.txt beside that
// folder lists the pages in reading order, a line each: the page and its context numbers. The first page is
// the table of contents. A page's title is its first heading.
class HelpContents {
  public:
    // Throws ErrorKind::File when the list cannot be read or is empty. A page that the folder lacks is taken
    // from help/en beside it; one that is not there either is left out.
    explicit HelpContents(const std::string& folder);

    [[nodiscard]] const std::vector<HelpTopic>& Topics() const { return topics_; }  // at least one
    [[nodiscard]] const HelpTopic* Find(std::string_view page) const;  // null for an unknown page
    [[nodiscard]] const HelpTopic& OfContext(
        int context) const;  // the table of contents for an unknown number

  private:
    std::vector<HelpTopic> topics_;
};

}  // namespace tessel

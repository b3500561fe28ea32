#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "report/page_file.h"

namespace tessel {

// The bars that lead from table to table. Every section has one that lists all tables, so the list is formed
// once and each bar is cut out of it.
class Navigation {
  public:
    // `label` stands before the list.
    Navigation(const std::vector<std::string>& tableNames, const std::string& label);

    // The bar of a table's section, by the table's place in the list: its name big and without a link.
    void WriteTableBar(PageFile& page, std::size_t table) const;
    // The bar at the end of the page.
    void WriteClosingBar(PageFile& page) const;

  private:
    struct Link {
        std::size_t begin;
        std::size_t end;
        std::string name;
    };

    std::string label_;
    std::string list_;         // a link for each table, with their separators
    std::vector<Link> links_;  // where each stands in list_
};

}  // namespace tessel

#include "report/navigation.h"

namespace tessel {

Navigation::Navigation(const std::vector<std::string>& tableNames, const std::string& label) : label_(label) {
    for (const auto& name : tableNames) {
        if (!list_.empty()) list_ += " &#149 ";
        const std::size_t begin = list_.size();
        list_ += "<a href=\"#Table:" + name + "\"> " + name + "</a>";
        links_.push_back({begin, list_.size(), name});
    }
}

void Navigation::WriteTableBar(PageFile& page, std::size_t table) const {
    const Link& current = links_.at(table);
    const std::string_view list = list_;
    page.Put("<p align=\"center\"><big>" + label_ + ": </big> <small>");
    page.Put(list.substr(0, current.begin));
    page.Put("</small><big><b>" + current.name + "</b></big><small>");
    page.Put(list.substr(current.end));
    page.Line("</small><br></p>");
}

void Navigation::WriteClosingBar(PageFile& page) const {
    page.Put("<p align=\"center\">" + label_ + ":<small>");
    page.Put(list_);
    page.Line("</small><br></p>");
}

}  // namespace tessel

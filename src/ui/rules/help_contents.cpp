#include "ui/rules/help_contents.h"

#include <algorithm>
#include <optional>
#include <sstream>

#include "platform/files/file_service.h"
#include "tessel/error.h"

namespace tessel {

namespace {

constexpr std::string_view headingMark = "# ";

std::string TitleOf(const std::string& text, const std::string& page) {
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        if (line.starts_with(headingMark)) return line.substr(headingMark.size());
    return page;
}

std::optional<std::string> ReadPage(const std::string& folder, const std::string& page) {
    for (const auto& place : {folder, files::SplitPath(folder).folder + "/en"}) {
        const std::string file = place + "/" + page + ".md";
        if (files::FileExists(file)) return files::ReadFile(file);
    }
    return std::nullopt;
}

}  // namespace

HelpContents::HelpContents(const std::string& folder) {
    const std::string list = files::SplitPath(folder).folder + "/contents.txt";
    std::istringstream lines(files::ReadFile(list));
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        HelpTopic topic;
        if (!(words >> topic.page) || topic.page.starts_with('#')) continue;
        auto text = ReadPage(folder, topic.page);
        if (!text) continue;
        topic.title = TitleOf(*text, topic.page);
        topic.text = std::move(*text);
        for (int context = 0; words >> context;) topic.contexts.push_back(context);
        topics_.push_back(std::move(topic));
    }
    if (topics_.empty()) throw Error(ErrorKind::File, "The file " + list + " names no page that is there.");
}

const HelpTopic* HelpContents::Find(std::string_view page) const {
    const auto found = std::ranges::find(topics_, page, &HelpTopic::page);
    return found == topics_.end() ? nullptr : &*found;
}

const HelpTopic& HelpContents::OfContext(int context) const {
    const auto found = std::ranges::find_if(topics_, [context](const HelpTopic& topic) {
        return std::ranges::find(topic.contexts, context) != topic.contexts.end();
    });
    return found == topics_.end() ? topics_.front() : *found;
}

}  // namespace tessel

#include "layout.h"

#include <algorithm>
#include <filesystem>

#include "item_parser.h"
#include "line_text.h"
#include "record_tree.h"
#include "shared/files.h"

namespace tessel::layout {

namespace {

namespace fs = std::filesystem;

std::string BaseName(const std::string& path) { return Upper(fs::path(path).stem().string()); }

}  // namespace

Layout ReadLayout(const std::string& path, Format format, const FileReader& read) {
    Layout layout;
    CopyReader reader(read, format, layout.remarks);
    const Tokens tokens = reader.Read(path);
    layout.files = reader.Files();
    layout.records = MakeRecords(ParseItems(tokens, layout.remarks), BaseName(path), layout.remarks);
    if (layout.records.empty()) throw Complaint(Text::NoRecord, {path});
    return layout;
}

std::error_code ReadWholeFile(const std::string& path, std::string& content) {
    constexpr std::size_t most = CopyReader::mostMegabytes * 1'000'000;
    return tool::ReadFile(path, content, most + 1);  // one more tells that it is too large
}

const Item& ChooseRecord(Layout& layout, const std::string& name) {
    const auto chosen = std::ranges::find_if(layout.records, [&](const Item& record) {
        return name.empty() || SameWord(record.ShownName(), name);
    });
    if (chosen == layout.records.end()) throw Complaint(Text::UnknownRecord, {layout.files.front(), name});
    return ChooseRecord(layout, static_cast<std::size_t>(chosen - layout.records.begin()));
}

const Item& ChooseRecord(Layout& layout, std::size_t number) {
    const Item& chosen = layout.records.at(number);
    for (const auto& record : layout.records)
        if (&record != &chosen) layout.remarks.Add(record.place, Text::OtherRecord, {record.ShownName()});
    return chosen;
}

}  // namespace tessel::layout

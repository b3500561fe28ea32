#pragma once

#include <string>
#include <vector>

#include "copy_reader.h"
#include "items.h"

namespace tessel::layout {

// What a copybook describes.
struct Layout {
    std::vector<std::string> files;  // the copybook and what it copies
    std::vector<Item> records;       // one at least
    Remarks remarks;
};

// Reads the copybook at `path`. Throws Complaint when it cannot be read or describes no record.
[[nodiscard]] Layout ReadLayout(const std::string& path, Format format, const FileReader& read);

// Reads a file of the system, as a FileReader.
[[nodiscard]] std::error_code ReadWholeFile(const std::string& path, std::string& content);

// The record of this name, or the first one for an empty name; the others get a remark. Throws Complaint when
// there is no such record.
[[nodiscard]] const Item& ChooseRecord(Layout& layout, const std::string& name);
[[nodiscard]] const Item& ChooseRecord(Layout& layout, std::size_t number);  // from 0

}  // namespace tessel::layout

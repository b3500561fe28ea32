#pragma once

#include <string>

#include "columns.h"
#include "source_lines.h"

namespace tessel::layout {

// What is imported, and how.
struct Options {
    std::string file;   // empty: to be asked for
    std::string table;  // empty: a new one named like the record
    Format format = Format::Auto;
    Choices choices;
    std::string record;  // empty: the first
    bool hasPreview = true;
};

// Reads "name=value" pairs parted by ";". Throws Complaint for a name or a value that is not known.
[[nodiscard]] Options ReadOptions(const std::string& parameter);

// Takes the value of one of them. Throws likewise.
void SetOption(Options& options, const std::string& name, const std::string& value);

// The values of the choices in the words of the parameter.
[[nodiscard]] std::string FormatWord(const Options& options);
[[nodiscard]] std::string OccursWord(const Options& options);
[[nodiscard]] std::string RedefinesWord(const Options& options);

}  // namespace tessel::layout

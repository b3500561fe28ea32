#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>

#include "platform/db/source_catalogue.h"
#include "support/temporary_folder.h"

namespace tessel::db {

inline std::string Shown(const std::string& comment) { return comment.empty() ? "" : " {" + comment + "}"; }

inline std::string Shown(const SourceColumn& column) {
    return column.name + " [" + column.type + "]" + (column.isNullable ? "" : "!") +
           (column.defaultValue ? "=" + *column.defaultValue : "") + Shown(column.comment);
}

inline std::string Shown(const SourceIndex& index) {
    std::string line = index.isPrimary ? "primary " : index.isUnique ? "unique " : "index ";
    line += index.name + Shown(index.comment);
    for (const auto& column : index.columns) line += (column.isDescending ? " -" : " +") + column.name;
    return line;
}

inline std::string Shown(const SourceKey& key) {
    std::string line = "key " + key.name + Shown(key.comment) + " to " + key.refTable;
    if (key.deletesCascade) line += " cascade";
    for (const auto& pair : key.pairs) line += " " + pair.column + ">" + pair.refColumn;
    return line;
}

// A line for each table, with those of its parts below it, and one for each note.
inline std::string Shown(const SourceCatalogue& catalogue) {
    std::string text;
    for (const auto& table : catalogue.tables) {
        text += table.name + (table.isView ? " view" : "") + Shown(table.comment) + "\n";
        for (const auto& column : table.columns) text += "    " + Shown(column) + "\n";
        for (const auto& index : table.indexes) text += "    " + Shown(index) + "\n";
        for (const auto& key : table.keys) text += "    " + Shown(key) + "\n";
    }
    for (const auto& [what, remark] : catalogue.notes) text += "note " + what + ": " + remark + "\n";
    return text;
}

// Each case of the folder is a script, NAME.sql, and what is read of the database that it makes, NAME.txt.
inline void ExpectCases(const std::filesystem::path& folder,
                        const std::function<SourceCatalogue(const std::string& sql)>& read) {
    int cases = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        std::filesystem::path file = entry.path();
        if (file.extension() != ".txt") continue;
        SCOPED_TRACE(file.string());
        const std::string expected = tessel::Content(file);
        EXPECT_EQ(Shown(read(tessel::Content(file.replace_extension("sql")))), expected);
        ++cases;
    }
    EXPECT_GT(cases, 0) << folder;
}

}  // namespace tessel::db

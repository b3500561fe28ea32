#pragma once

#include <string>
#include <vector>

#include "platform/db/source_catalogue.h"

namespace tessel::db {

using Lines = std::vector<std::string>;

inline std::string Shown(const std::string& comment) { return comment.empty() ? "" : " {" + comment + "}"; }

inline std::string Shown(const SourceTable& table) {
    std::string text = table.name + (table.isView ? " view" : "") + Shown(table.comment) + ":";
    for (const auto& column : table.columns)
        text += " " + column.name + " [" + column.type + "]" + (column.isNullable ? "" : "!") +
                (column.defaultValue ? "=" + *column.defaultValue : "") + Shown(column.comment);
    for (const auto& index : table.indexes) {
        text += std::string(index.isPrimary  ? "; primary "
                            : index.isUnique ? "; unique "
                                             : "; index ") +
                index.name + Shown(index.comment);
        for (const auto& column : index.columns) text += (column.isDescending ? " -" : " +") + column.name;
    }
    for (const auto& key : table.keys) {
        text += "; key " + key.name + Shown(key.comment) + " to " + key.refTable +
                (key.deletesCascade ? " cascade" : "");
        for (const auto& pair : key.pairs) text += " " + pair.column + ">" + pair.refColumn;
    }
    return text;
}

// A line for each table.
inline Lines Shown(const SourceCatalogue& catalogue) {
    Lines lines;
    for (const auto& table : catalogue.tables) lines.push_back(Shown(table));
    return lines;
}

inline Lines Notes(const SourceCatalogue& catalogue) {
    Lines lines;
    for (const auto& [what, remark] : catalogue.notes) lines.push_back(what + ": " + remark);
    return lines;
}

}  // namespace tessel::db

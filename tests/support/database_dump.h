#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>
#include <vector>

namespace tessel::test {

// The rows of a query on an open database, a line each; what says when a row was made is left out.
inline std::string RowsOf(sqlite3* connection, const std::string& sql) {
    std::string rows;
    const auto keep = [](void* text, int count, char** fields, char** names) {
        auto& line = *static_cast<std::string*>(text);
        for (int field = 0; field < count; ++field)
            if (!fields[field] || std::string(names[field]) != "Created")
                line.append(fields[field] ? fields[field] : "(null)").append("|");
        line += "\n";
        return 0;
    };
    EXPECT_EQ(sqlite3_exec(connection, sql.c_str(), keep, &rows, nullptr), SQLITE_OK)
        << sql << ": " << sqlite3_errmsg(connection);
    return rows;
}

// All that a schema database holds, as another program finds it on the disk; its last identifiers, too.
inline std::string DumpOf(const std::string& file) {
    sqlite3* connection = nullptr;
    EXPECT_EQ(sqlite3_open_v2(file.c_str(), &connection, SQLITE_OPEN_READWRITE, nullptr), SQLITE_OK) << file;
    EXPECT_EQ(RowsOf(connection, "pragma integrity_check"), "ok|\n") << file;
    std::string dump;
    for (const char* table : {"Tables", "Columns", "Indices", "IndexColumns", "ForeignKeys",
                              "ForeignKeyColumns", "ProjectSettings", "Errors", "sqlite_sequence"})
        dump += std::string(table) + "\n" +
                RowsOf(connection, "select * from " + std::string(table) + " order by rowid");
    sqlite3_close(connection);
    return dump;
}

}  // namespace tessel::test

#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>

namespace tessel::test {

// Runs SQL of any kind on a database file, beside the program's own connection.
inline void RunRawSql(const std::string& file, const std::string& sql) {
    sqlite3* connection = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &connection), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(connection, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(connection);
    sqlite3_close(connection);
}

}  // namespace tessel::test

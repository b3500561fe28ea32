#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "platform/db/database.h"
#include "support/temporary_folder.h"

namespace tessel::db {

// A fresh folder with a copy of the template, taken away with the test.
class TemporaryDatabase : public testing::Test {
  protected:
    TemporaryDatabase() {
        path_ = folder_ / "DBSchema.mdb";
        std::filesystem::copy_file(TESSEL_SHARE "/DBSchema.mdb", path_);
    }

    [[nodiscard]] std::shared_ptr<Database> Open() const {
        return Database::Open(path_.string(), std::chrono::milliseconds(20));
    }

    TemporaryFolder folder_;
    std::filesystem::path path_;
};

// The kind of error that the call throws; nothing thrown fails the test.
template <typename Call>
ErrorKind KindThrown(Call&& call) {
    try {
        call();
    } catch (const Error& error) {
        return error.Kind();
    }
    ADD_FAILURE() << "nothing was thrown";
    return ErrorKind::Argument;
}

inline std::int32_t Count(Database& database, const std::string& table) {
    Query query = database.Select("select count(*) as N from " + table);
    query.Next();
    return query.Integer("N");
}

}  // namespace tessel::db

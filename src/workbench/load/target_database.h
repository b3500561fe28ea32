#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/db/database.h"

namespace tessel::workbench {

// A database in the making, gone in the end unless it was put in its place. What fails throws
// ErrorKind::File, or Full or ReadOnly where that is the cause.
class NewDatabase {
  public:
    NewDatabase(const std::string& templateDatabase, std::string path);
    ~NewDatabase() { Remove(); }
    NewDatabase(const NewDatabase&) = delete;
    NewDatabase& operator=(const NewDatabase&) = delete;

    [[nodiscard]] const std::string& Path() const { return path_; }
    void PutInPlaceOf(const std::string& path) const;

  private:
    explicit NewDatabase(std::string path);
    void Remove() const;

    std::string path_;
};

// The schema database that a load changes in one transaction, undone unless it is kept. When there is none,
// it is made from the template, and comes to its place only when it is whole.
class TargetDatabase {
  public:
    // Throws ErrorKind::File beside a journal of a database that is gone, and what the making or the opening
    // of one throws.
    TargetDatabase(std::string path, const std::string& templateDatabase);

    db::Database& operator*() { return *database_; }
    void Keep();

  private:
    std::string path_;
    std::optional<NewDatabase> made_;
    std::shared_ptr<db::Database> database_;
    std::optional<db::Transaction> transaction_;
};

}  // namespace tessel::workbench

#pragma once

#include <memory>

#include "platform/db/database.h"
#include "tessel/object.h"

namespace tessel {

// The open schema database as add-on tools see it:
//   Name             the path of its file
//   Execute(sql)     runs a statement that changes rows; returns how many it touched
//   RecordsAffected  how many rows the last Execute touched
//   Select(sql)      the rows of a query, a collection under the keys "1", "2", ...;
//                    each row is a collection of its fields by name; more than 1,000,000 rows, or 64 MiB,
//                    throws ErrorKind::Sql
class DatabaseObject : public Object {
  public:
    explicit DatabaseObject(std::shared_ptr<db::Database> database) : database_(std::move(database)) {}

    Value Call(std::string_view member, CallKind kind, Arguments& arguments) override;

  private:
    std::string Name() const { return database_->Path(); }
    std::int32_t Execute(const std::string& sql) { return database_->Execute(sql); }
    std::int32_t RecordsAffected() const { return database_->RowsTouched(); }
    std::shared_ptr<Collection> Select(const std::string& sql);

    std::shared_ptr<db::Database> database_;
};

}  // namespace tessel

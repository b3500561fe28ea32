#pragma once

#include <string>

#include "platform/db/database.h"

// Named texts of the project, kept in its schema database. Database errors are thrown.
namespace tessel {

// The empty text when the setting is absent.
[[nodiscard]] std::string GetProjectSettings(db::Database& database, const std::string& propName);

// The empty text removes the setting.
void SetProjectSettings(db::Database& database, const std::string& propName, const std::string& propValue);

// The setting "Verified" is "OK" while the table Errors reflects the schema; every change takes it away.
[[nodiscard]] bool IsVerified(db::Database& database);
void SetVerifiedMark(db::Database& database);
void RemoveVerifiedMark(db::Database& database);

}  // namespace tessel

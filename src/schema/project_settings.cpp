#include "schema/project_settings.h"

#include "schema/sql_text.h"

namespace tessel {

namespace {

constexpr const char* mark = "Verified";
constexpr const char* marked = "OK";

}  // namespace

std::string GetProjectSettings(db::Database& database, const std::string& propName) {
    auto row = database.Select("select PropValue from ProjectSettings where PropName = '" +
                               SqlQuote(propName) + "'");
    return row.Next() ? row.Text("PropValue") : std::string();
}

void SetProjectSettings(db::Database& database, const std::string& propName, const std::string& propValue) {
    db::Transaction change(database);
    database.Execute("delete from ProjectSettings where PropName = '" + SqlQuote(propName) + "'");
    if (!propValue.empty())
        database.Execute("insert into ProjectSettings(PropName,Propvalue) values ('" + SqlQuote(propName) +
                         "','" + SqlQuote(propValue) + "')");
    change.Commit();
}

bool IsVerified(db::Database& database) { return GetProjectSettings(database, mark) == marked; }
void SetVerifiedMark(db::Database& database) { SetProjectSettings(database, mark, marked); }
void RemoveVerifiedMark(db::Database& database) { SetProjectSettings(database, mark, ""); }

}  // namespace tessel

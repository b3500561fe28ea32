#include "verify/db_check.h"

#include "schema/project_settings.h"
#include "schema/sql_text.h"
#include "verify/findings.h"

namespace tessel {

namespace {

constexpr int verifyingText = 1200;

struct Table {
    std::int32_t tabID;
    std::string tableName;
};

std::vector<Table> ReadTables(db::Database& database) {
    std::vector<Table> tables;
    for (auto row = database.Select("select TabID, TableName from Tables order by TabID"); row.Next();)
        tables.push_back({row.Integer("TabID"), row.Text("TableName")});
    return tables;
}

}  // namespace

void DBCheck::AddError(std::int32_t tblID, std::int32_t keyID, std::int32_t columnID,
                       const std::string& message) {
    state_.Database().Execute("insert into Errors (TblID,KeyID,ColumnID,Message) values(" +
                              std::to_string(tblID) + "," + std::to_string(keyID) + "," +
                              std::to_string(columnID) + ",'" + SqlQuote(message) + "')");
}

void DBCheck::VerifySchema(bool showErrors) {
    if (IsVerified(state_.Database())) return;
    db::Transaction run(state_.Database());
    try {
        CheckAllTables(showErrors);
    } catch (...) {
        run.Commit();  // what was found so far stays
        throw;
    }
    run.Commit();
}

void DBCheck::CheckAllTables(bool showErrors) {
    state_.Database().Execute("delete from Errors");
    const auto tables = ReadTables(state_.Database());
    state_.Window().StartProgress(state_.texts->Text(verifyingText),
                                  static_cast<std::int32_t>(tables.size()) + 1);
    for (const auto& [tabID, tableName] : tables) {
        state_.Window().StartStep(tableName);
        CheckTable(tabID, tableName);
        state_.Window().FinishStep(1);
    }
    if (showErrors) LoadErrors();
    state_.Window().FinishProgress();
    SetVerifiedMark(state_.Database());
}

void DBCheck::CheckTable(std::int32_t tabID, const std::string& tableName) {
    Findings findings(state_, *this);
    CheckTableName(findings, tabID, tableName);
    CheckColumns(findings, tabID);
    CheckIndexes(findings, tabID);
    CheckForeignKeys(findings, tabID);
}

}  // namespace tessel

#include "verify/db_check.h"

namespace tessel {

namespace {

constexpr int noErrorsText = 500;
constexpr int errorsFoundText = 501;

std::string IconOf(const ErrorRow& error) {
    if (error.keyID > 0) return "Key";
    return error.columnID > 0 ? "Column" : "Table";
}

std::string TagOf(const ErrorRow& error) {
    return std::to_string(error.tblID) + '\r' + std::to_string(error.columnID) + '\r' +
           std::to_string(error.keyID);
}

}  // namespace

std::vector<ErrorRow> DBCheck::StoredErrors() {
    std::vector<ErrorRow> errors;
    for (auto row = state_.Database().Select(
             "select e.*, t.TableName from errors e, Tables t where t.TabId = e.TblId order by "
             "e.TblID,e.KeyID,e.ColumnID");
         row.Next();) {
        ErrorRow& error = errors.emplace_back();
        error.tblID = row.Integer("TblID");
        error.keyID = row.Integer("KeyID");
        error.columnID = row.Integer("ColumnID");
        error.tableName = row.Text("TableName");
        error.message = row.Text("Message");
        error.icon = IconOf(error);
        error.tag = TagOf(error);
    }
    return errors;
}

std::string DBCheck::TitleFor(std::size_t errors) const {
    return errors == 0 ? state_.texts->Text(noErrorsText)
                       : state_.texts->Format(errorsFoundText, {std::to_string(errors)});
}

void DBCheck::LoadErrors() {
    const auto errors = StoredErrors();
    state_.Window().ShowErrors(errors, TitleFor(errors.size()));
}

}  // namespace tessel

#include "ui/rules/table_dialog.h"

#include "schema/sql_text.h"
#include "tessel/convert.h"
#include "ui/rules/messages.h"

namespace tessel {

namespace {

constexpr int notAvailableText = 2008;
constexpr int illegalTableText = 2009;
constexpr int cannotChangeText = 2013;
constexpr int propertiesActivity = 2087;

std::string LegacyName(const ComponentState& state, const std::string& repObjId) {
    const std::string& none = state.texts->Text(notAvailableText);
    try {
        return repObjId.empty() ? none : state.Frontend().RepositoryOf()->ObjectById(repObjId)->Label();
    } catch (const Error&) {
        return none;
    }
}

}  // namespace

std::optional<TableDialog> TableDialog::Open(ComponentState& state, std::int32_t tableId) {
    auto row = state.Database().Select("select T.* from Tables T  where TabId = " + std::to_string(tableId));
    if (!row.Next()) {
        Tell(state, state.texts->Text(illegalTableText), host::Icon::Critical);
        return std::nullopt;
    }
    TableDialog dialog(state, tableId);
    dialog.tableName = row.Text("TableName");
    if (!row["Created"].IsNull()) dialog.created = ToDate(row["Created"]);
    dialog.legacyName = LegacyName(state, NullToText(row["RepObjId"]));
    dialog.storageOption = NullToText(row["StorageOption"]);
    dialog.comment = NullToText(row["Comments"]);
    return dialog;
}

bool TableDialog::Write() {
    const UserChange change{.activity = propertiesActivity,
                            .subject = tableName,
                            .complaint = state_->texts->Format(cannotChangeText, {tableName})};
    return DoOrTell(*state_, change, [&] {
        return WorkspaceOf(*state_)->TableUpdate(tableId_, Missing{}, storageOption, comment, Missing{});
    });
}

}  // namespace tessel

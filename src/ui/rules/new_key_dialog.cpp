#include "ui/rules/new_key_dialog.h"

#include "tessel/convert.h"
#include "ui/rules/messages.h"

namespace tessel {

namespace {

constexpr int captionText = 2420;
constexpr int notCreatedText = 2423;
constexpr int newKeyActivity = 2450;
constexpr std::int32_t noTable = -1;

}  // namespace

NewKeyDialog::NewKeyDialog(ComponentState& state, std::string tableName, std::int32_t tabID,
                           std::int32_t refTabID)
    : state_(state), tableName_(std::move(tableName)), tabID_(tabID), refTabID_(refTabID) {
    for (auto row = state.Database().Select("Select TableName, TabId from Tables order by TableName");
         row.Next();) {
        tableNames_.push_back(row.Text("TableName"));
        tabIDs_.push_back(row.Integer("TabId"));
        if (tabIDs_.back() == refTabID) table_ = tabIDs_.size() - 1;
    }
    if (refTabID == noTable && !tabIDs_.empty()) table_ = 0;
}

std::string NewKeyDialog::Caption() const { return state_.texts->Format(captionText, {tableName_}); }

std::int32_t NewKeyDialog::EditName(const std::string& text, std::int32_t caret) {
    Value selStart = caret;
    keyName_ = WorkspaceOf(state_)->SQLID(text, selStart);
    return ToInt32(selStart);
}

bool NewKeyDialog::OK() {
    std::int32_t keyID = -1;
    const UserChange change{
        .activity = newKeyActivity, .subject = keyName_, .complaint = state_.texts->Text(notCreatedText)};
    const bool created =
        CanOK() && DoOrTell(state_, change, [&] {
            return WorkspaceOf(state_)->ForeignAdd(tabID_, tabIDs_[*table_], keyName_, keyID);
        });
    if (created) keyID_ = keyID;
    return created;
}

}  // namespace tessel

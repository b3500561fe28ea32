#include "ui/rules/foreign_key_dialog.h"

#include <algorithm>

#include "schema/project_settings.h"
#include "ui/rules/icon_keys.h"
#include "ui/rules/messages.h"

namespace tessel {

namespace {

constexpr int captionText = 2400;
constexpr int illegalKeyText = 2404;
constexpr int notWrittenText = 2405;
constexpr int propertiesActivity = 2448;

ForeignKeyDialog::List Other(ForeignKeyDialog::List list) {
    return list == ForeignKeyDialog::Referencing ? ForeignKeyDialog::Referenced
                                                 : ForeignKeyDialog::Referencing;
}

}  // namespace

std::optional<ForeignKeyDialog> ForeignKeyDialog::Open(ComponentState& state, std::int32_t keyID,
                                                       const std::string& onDeleteText,
                                                       const std::string& comment) {
    auto key = state.Database().Select(
        "select K.*, T.TableName, RT.TableName as RefTableName from ForeignKeys K, Tables T, Tables RT "
        "where KeyId = " +
        std::to_string(keyID) + " and T.TabId = K.TabId and K.RefTabId = RT.TabID");
    if (!key.Next()) {
        Tell(state, state.texts->Text(illegalKeyText), host::Icon::Critical);
        return std::nullopt;
    }
    ForeignKeyDialog dialog(state, keyID);
    dialog.keyName_ = key.Text("KeyName");
    dialog.tableNames_ = {key.Text("TableName"), key.Text("RefTableName")};
    dialog.openedWithRule_ = onDeleteText;
    dialog.openedWithComment_ = dialog.comment_ = comment;
    const auto rules = dialog.DeleteRules();
    const auto rule = std::ranges::find(rules, onDeleteText);
    if (rule != rules.end()) dialog.deleteRule_ = static_cast<std::size_t>(rule - rules.begin());
    dialog.FillLists(key.Integer("TabID"), key.Integer("RefTabId"));
    Collection referenced;
    dialog.FillLinks(referenced);
    dialog.FillIndexes(key.Integer("RefTabId"), referenced);
    return dialog;
}

void ForeignKeyDialog::FillLists(std::int32_t tabID, std::int32_t refTabID) {
    for (auto& column : ReadColumns(state_, refTabID)) {
        refRows_[column.columnID] = rows_[Referenced].size();
        rows_[Referenced].push_back({.column = std::move(column), .icon = icon::none, .isBold = true});
    }
    for (auto& column : ReadColumns(state_, tabID)) {
        const std::string icon = ColumnIcon(false, column.isNullable);
        rows_[Referencing].push_back({.column = std::move(column), .icon = icon});
    }
}

void ForeignKeyDialog::FillLinks(Collection& referenced) {
    const auto& rows = rows_[Referencing];
    for (auto pair = state_.Database().Select("select * from ForeignKeyColumns where KeyId = " +
                                              std::to_string(keyID_));
         pair.Next();) {
        const std::int32_t refColumnID = pair.Integer("RefColumnID");
        if (!referenced.HasKey(ColumnKey(refColumnID))) referenced.Add(refColumnID, ColumnKey(refColumnID));
        const auto row =
            std::ranges::find(rows, pair.Integer("ColumnID"), [](const Row& r) { return r.column.columnID; });
        if (row == rows.end()) continue;
        const auto place = static_cast<std::size_t>(row - rows.begin());
        SetLink(place, refColumnID);
        if (!selected_[Referencing]) selected_[Referencing] = place;
    }
}

void ForeignKeyDialog::FillIndexes(std::int32_t refTabID, const Collection& referenced) {
    for (auto row = state_.Database().Select("select * from Indices where TabId = " +
                                             std::to_string(refTabID) + " and Unique order by IndexName");
         row.Next();) {
        indexNames_.push_back(row.Text("IndexName"));
        indexIDs_.push_back(row.Integer("IndexID"));
        if (WorkspaceOf(state_)->IndexMatch(indexIDs_.back(), referenced)) index_ = indexIDs_.size() - 1;
    }
    SelectIndex(index_);
}

std::string ForeignKeyDialog::Caption() const { return state_.texts->Format(captionText, {keyName_}); }

std::string ForeignKeyDialog::DetailsName(List list) const {
    return selected_[list] ? rows_[list][*selected_[list]].column.name : std::string();
}

std::string ForeignKeyDialog::DetailsType(List list) const {
    return selected_[list] ? rows_[list][*selected_[list]].column.typeText : std::string();
}

bool ForeignKeyDialog::CanUnlink() const {
    return selected_[Referencing] && rows_[Referencing][*selected_[Referencing]].link != 0;
}

std::vector<std::string> ForeignKeyDialog::DeleteRules() const {
    return {state_.restrictText, state_.cascadeText};
}

std::optional<std::size_t> ForeignKeyDialog::RefRow(std::int32_t refColumnID) const {
    const auto row = refRows_.find(refColumnID);
    return row == refRows_.end() ? std::nullopt : std::optional(row->second);
}

std::optional<std::size_t> ForeignKeyDialog::LinkedRow(std::int32_t refColumnID) const {
    const auto& rows = rows_[Referencing];
    const auto row = std::ranges::find(rows, refColumnID, &Row::link);
    if (row == rows.end()) return std::nullopt;
    return static_cast<std::size_t>(row - rows.begin());
}

std::vector<RowLink> ForeignKeyDialog::Links() const {
    std::vector<RowLink> links;
    for (std::size_t place = 0; place < rows_[Referencing].size(); ++place) {
        const std::int32_t link = rows_[Referencing][place].link;
        if (link == 0) continue;
        const auto partner = RefRow(link);
        links.push_back(
            {.row = static_cast<int>(place) + 1, .partner = partner ? static_cast<int>(*partner) + 1 : 0});
    }
    return links;
}

void ForeignKeyDialog::SetLink(std::size_t place, std::int32_t refColumnID) {
    Row& row = rows_[Referencing][place];
    const auto partner = RefRow(refColumnID);
    row.link = refColumnID;
    row.isBold = refColumnID != 0;
    row.isRed =
        row.isBold && (!partner || rows_[Referenced][*partner].column.typeText != row.column.typeText);
}

void ForeignKeyDialog::Select(List list, std::optional<std::size_t> row) { selected_[list] = row; }

void ForeignKeyDialog::SelectPartner(List list) {
    const auto row = selected_[list];
    if (!row) return;
    const Row& chosen = rows_[list][*row];
    selected_[Other(list)] = list == Referencing ? RefRow(chosen.link) : LinkedRow(chosen.column.columnID);
}

void ForeignKeyDialog::Link() {
    if (!CanLink()) return;
    const std::int32_t refColumnID = rows_[Referenced][*selected_[Referenced]].column.columnID;
    if (const auto linked = LinkedRow(refColumnID)) SetLink(*linked, 0);
    SetLink(*selected_[Referencing], refColumnID);
}

void ForeignKeyDialog::Unlink() {
    if (selected_[Referencing]) SetLink(*selected_[Referencing], 0);
}

void ForeignKeyDialog::SelectIndex(std::optional<std::size_t> index) {
    index_ = index;
    for (Row& row : rows_[Referenced]) row.icon = icon::none;
    if (!index) return;
    for (auto column = state_.Database().Select("select * from IndexColumns where IndexID = " +
                                                std::to_string(indexIDs_.at(*index)) + " order by Position");
         column.Next();)
        if (const auto row = RefRow(column.Integer("ColumnID"))) rows_[Referenced][*row].icon = icon::key;
}

bool ForeignKeyDialog::OK() {
    return WriteOrTell(state_,
                       {.activity = propertiesActivity,
                        .subject = keyName_,
                        .complaint = state_.texts->Format(notWrittenText, {keyName_})},
                       [this] { return Write(); });
}

bool ForeignKeyDialog::Write() const {
    db::TableSet key = state_.Database().OpenTable("ForeignKeys");
    key.SetIndex("PrimaryKey");
    if (!key.Seek({keyID_})) return false;
    WritePairs();
    if (OnDeleteText() != openedWithRule_ || comment_ != openedWithComment_) {
        key.Edit();
        key.Set("HowDelete", OnDeleteText() == state_.restrictText ? "R" : "C");
        key.Set("Comment", comment_);
        key.Save();
    }
    RemoveVerifiedMark(state_.Database());
    return true;
}

void ForeignKeyDialog::WritePairs() const {
    state_.Database().Execute("delete from ForeignKeyColumns where KeyId = " + std::to_string(keyID_));
    db::TableSet pairs = state_.Database().OpenTable("ForeignKeyColumns");
    for (const Row& row : rows_[Referencing]) {
        if (row.link == 0) continue;
        pairs.AddNew();
        pairs.Set("KeyID", keyID_);
        pairs.Set("ColumnID", row.column.columnID);
        pairs.Set("RefColumnID", row.link);
        pairs.Save();
    }
}

std::string ForeignKeyDialog::ColumnsText() const {
    std::string columns;
    for (const Row& row : rows_[Referencing])
        if (row.link != 0) AppendListed(columns, row.column.name);
    return columns;
}

std::string ForeignKeyDialog::RefColumnsText() const {
    std::string columns;
    for (const Row& row : rows_[Referencing])
        if (const auto partner = RefRow(row.link))
            AppendListed(columns, rows_[Referenced][*partner].column.name);
    return columns;
}

std::string ForeignKeyDialog::OnDeleteText() const {
    return deleteRule_ ? DeleteRules()[*deleteRule_] : openedWithRule_;
}

}  // namespace tessel

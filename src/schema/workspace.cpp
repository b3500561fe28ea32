#include "schema/workspace.h"

#include "schema/database_object.h"
#include "schema/identifiers.h"
#include "schema/project_settings.h"
#include "tessel/convert.h"

namespace tessel {

host::Frontend& ComponentState::Frontend() const {
    if (!frontend) throw Error(ErrorKind::Host, "The schema editor has not been started by a host.");
    return *frontend;
}

db::Database& ComponentState::Database() const {
    if (!database) throw Error(ErrorKind::Host, "No project's schema database is open.");
    return *database;
}

ToolWindow& ComponentState::Window() const {
    if (!window) throw Error(ErrorKind::Host, "The schema editor's window is not open.");
    return *window;
}

std::shared_ptr<VNTWS> WorkspaceOf(ComponentState& state) {
    if (!state.workspace) state.workspace = std::make_shared<Workspace>(state);
    return state.workspace;
}

void Workspace::Complain(const std::string& text) {
    state_.questions->Show({.text = text, .title = state_.Title(), .icon = host::Icon::Critical});
}

std::string Workspace::CVRL() const { return Window().CVRL(); }
void Workspace::SetCVRL(const std::string& value) { Window().SetCVRL(value); }

std::shared_ptr<Object> Workspace::ProjectDB() const {
    return state_.database ? std::make_shared<DatabaseObject>(state_.database) : nullptr;
}

void Workspace::StartProgress(const std::string& action, std::int32_t totalLength) {
    Window().StartProgress(action, totalLength);
}
void Workspace::StartStep(const std::string& act) { Window().StartStep(act); }
void Workspace::FinishStep(std::int32_t length) { Window().FinishStep(length); }
void Workspace::FinishProgress() { Window().FinishProgress(); }

std::string Workspace::SQLID(const std::string& id, Value& selStart) {
    return tessel::SQLID(state_, id, selStart);
}

std::string Workspace::SQLInteger(const std::string& repr, Value& selStart) {
    return tessel::SQLInteger(repr, selStart);
}

void Workspace::LoadTableCombo(TableCombo& cmbTable, const Value& tableId) {
    const std::int32_t wanted = tableId.IsMissing() ? -1 : ToInt32(tableId);
    cmbTable.Clear();
    for (auto row = Db().Select("select * from Tables order by TableName"); row.Next();) {
        const std::int32_t tabID = row.Integer("TabID");
        cmbTable.AddItem(row.Text("TableName"), tabID);
        if (tabID == wanted) cmbTable.Select(cmbTable.ItemCount() - 1);
    }
    if (cmbTable.SelectedIndex() < 0 && cmbTable.ItemCount() > 0) cmbTable.Select(0);
}

std::string Workspace::GetProjectSettings(const std::string& propName) {
    return tessel::GetProjectSettings(Db(), propName);
}

void Workspace::SetProjectSettings(const std::string& propName, const std::string& propValue) {
    tessel::SetProjectSettings(Db(), propName, propValue);
}

void Workspace::RefreshBrowser() {
    Db().RefreshCache();
    Window().RefreshBrowser();
}

void Workspace::Verify() {
    if (!state_.verifySchema) throw Error(ErrorKind::Component, "This installation cannot verify a schema.");
    state_.verifySchema(state_);
}

}  // namespace tessel

#include "platform/component/member_table.h"
#include "schema/tool_window.h"
#include "schema/workspace.h"

namespace tessel {

Value Workspace::Call(std::string_view member, CallKind kind, Arguments& arguments) {
    static const MemberTable<VNTWS> members{
        Getter<&VNTWS::MethodID>("MethodID"),
        Setter<&VNTWS::SetMethodID>("MethodID"),
        Getter<&VNTWS::ReturnCode>("ReturnCode"),
        Setter<&VNTWS::SetReturnCode>("ReturnCode"),
        Getter<&VNTWS::SelectedTabID>("SelectedTabID"),
        Setter<&VNTWS::SetSelectedTabID>("SelectedTabID"),
        Getter<&VNTWS::CVRL>("CVRL"),
        Setter<&VNTWS::SetCVRL>("CVRL"),
        Getter<&VNTWS::ToolID>("ToolID"),
        Getter<&VNTWS::ProjectDB>("ProjectDB"),
        Getter<&VNTWS::DatabaseFilename>("DatabaseFilename"),
        Getter<&VNTWS::objComposite>("objComposite"),
        Getter<&VNTWS::ToolWindow>("ToolWindow"),
        Method<&VNTWS::StartProgress>("StartProgress"),
        Method<&VNTWS::StartStep>("StartStep"),
        Method<&VNTWS::FinishStep>("FinishStep"),
        Method<&VNTWS::FinishProgress>("FinishProgress"),
        Method<&VNTWS::SQLID>("SQLID"),
        Method<&VNTWS::SQLInteger>("SQLInteger"),
        Method<&VNTWS::LoadTableCombo>("LoadTableCombo"),
        Method<&VNTWS::GetProjectSettings>("GetProjectSettings"),
        Method<&VNTWS::SetProjectSettings>("SetProjectSettings"),
        Method<&VNTWS::GetFreeTableName>("GetFreeTableName"),
        Method<&VNTWS::TableAdd>("TableAdd"),
        Method<&VNTWS::TableAddVerbally>("TableAddVerbally"),
        Method<&VNTWS::TableDrop>("TableDrop"),
        Method<&VNTWS::DropTableVerbally>("DropTableVerbally"),
        Method<&VNTWS::TableUpdate>("TableUpdate"),
        Method<&VNTWS::GetFreeColumnName>("GetFreeColumnName"),
        Method<&VNTWS::ColumnAdd>("ColumnAdd"),
        Method<&VNTWS::ColumnImport>("ColumnImport"),
        Method<&VNTWS::ColumnCopy>("ColumnCopy"),
        Method<&VNTWS::ColumnDrop>("ColumnDrop"),
        Method<&VNTWS::ColumnUpdate>("ColumnUpdate"),
        Method<&VNTWS::GetCompatibleType>("GetCompatibleType"),
        Method<&VNTWS::PrimaryAdd>("PrimaryAdd"),
        Method<&VNTWS::PrimaryKeyColumns>("PrimaryKeyColumns"),
        Method<&VNTWS::IndexMatch>("IndexMatch"),
        Method<&VNTWS::ForeignAdd>("ForeignAdd"),
        Method<&VNTWS::ForeignUpdate>("ForeignUpdate"),
        Method<&VNTWS::ForeignDrop>("ForeignDrop"),
        Method<&VNTWS::IndexAdd>("IndexAdd"),
        Method<&VNTWS::IndexUpdate>("IndexUpdate"),
        Method<&VNTWS::IndexDrop>("IndexDrop"),
        Method<&VNTWS::RefreshBrowser>("RefreshBrowser"),
        Method<&VNTWS::Verify>("Verify"),
        Getter<&VNTWS::MethodName>("MethodName"),
        Setter<&VNTWS::SetMethodName>("MethodName"),
    };
    return members.Call(*this, member, kind, arguments);
}

Value ToolWindow::Call(std::string_view member, CallKind kind, Arguments& arguments) {
    static const MemberTable<ToolWindow> members{
        Method<&ToolWindow::DrawTable>("DrawTable"),
        Method<&ToolWindow::RemoveTable>("RemoveTable"),
        Method<&ToolWindow::AddConnector>("AddConnector"),
        Method<&ToolWindow::SetConnectorText>("SetConnectorText"),
        Method<&ToolWindow::RemoveConnector>("RemoveConnector"),
        Method<&ToolWindow::StartProgress>("StartProgress"),
        Method<&ToolWindow::StartStep>("StartStep"),
        Method<&ToolWindow::FinishStep>("FinishStep"),
        Method<&ToolWindow::FinishProgress>("FinishProgress"),
        Method<&ToolWindow::RefreshBrowser>("RefreshBrowser"),
        Method<&ToolWindow::SelectTable>("SelectTable"),
        Method<&ToolWindow::Message>("Message"),
        Method<&ToolWindow::Input>("Input"),
        Method<&ToolWindow::Form>("Form"),
        Getter<&ToolWindow::CVRL>("CVRL"),
        Setter<&ToolWindow::SetCVRL>("CVRL"),
    };
    return members.Call(*this, member, kind, arguments);
}

}  // namespace tessel

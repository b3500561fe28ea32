#include "addon_host/remote_workspace.h"

#include <utility>

#include "platform/component/member_table.h"

namespace tessel {

namespace {

// What a value is as a C++ type of the workspace's members.
template <typename T>
T As(const Value& value) {
    if constexpr (std::is_same_v<T, Value>) {
        return value;
    } else if constexpr (requires { typename T::element_type; }) {
        const auto* pointer = value.As<T>();
        return pointer ? *pointer : nullptr;
    } else {
        return members::FromValue<T>(value);
    }
}

// A combo box and a collection stay the caller's.
template <typename T>
Value Passed(T& argument) {
    if constexpr (std::is_base_of_v<Object, T>)
        return std::shared_ptr<Object>(std::shared_ptr<void>(), &argument);
    else if constexpr (std::is_same_v<T, const Collection>)
        return std::make_shared<Collection>(argument);
    else
        return argument;
}

template <typename T>
void HandBack(T& argument, const Value& value) {
    if constexpr (!std::is_const_v<T> && !std::is_base_of_v<Object, T>) argument = As<T>(value);
}

template <typename... P, std::size_t... Position>
void HandAllBack(const Arguments& values, std::index_sequence<Position...>, P&... passed) {
    (HandBack(passed, values[Position]), ...);
}

}  // namespace

template <typename Result>
Result RemoteWorkspace::Get(const char* member) const {
    Arguments none;
    return As<Result>(editor_->Call(nullptr, member, CallKind::Get, none));
}

void RemoteWorkspace::Put(const char* member, const Value& value) {
    Arguments values{value};
    editor_->Call(nullptr, member, CallKind::Put, values);
}

template <typename Result, typename... P>
Result RemoteWorkspace::Ask(const char* member, P&... passed) {
    Arguments values{Passed(passed)...};
    const Value result = editor_->Call(nullptr, member, CallKind::Method, values);
    HandAllBack(values, std::index_sequence_for<P...>{}, passed...);
    if constexpr (!std::is_void_v<Result>) return As<Result>(result);
}

std::string RemoteWorkspace::MethodID() const { return Get<std::string>("MethodID"); }
void RemoteWorkspace::SetMethodID(const std::string& value) { Put("MethodID", value); }
std::int16_t RemoteWorkspace::ReturnCode() const { return Get<std::int16_t>("ReturnCode"); }
void RemoteWorkspace::SetReturnCode(std::int16_t value) { Put("ReturnCode", value); }
std::int32_t RemoteWorkspace::SelectedTabID() const { return Get<std::int32_t>("SelectedTabID"); }
void RemoteWorkspace::SetSelectedTabID(std::int32_t value) { Put("SelectedTabID", value); }
std::string RemoteWorkspace::CVRL() const { return Get<std::string>("CVRL"); }
void RemoteWorkspace::SetCVRL(const std::string& value) { Put("CVRL", value); }
std::string RemoteWorkspace::ToolID() const { return Get<std::string>("ToolID"); }
std::shared_ptr<Object> RemoteWorkspace::ProjectDB() const {
    return Get<std::shared_ptr<Object>>("ProjectDB");
}
std::string RemoteWorkspace::DatabaseFilename() const { return Get<std::string>("DatabaseFilename"); }
std::shared_ptr<Object> RemoteWorkspace::objComposite() const {
    return Get<std::shared_ptr<Object>>("objComposite");
}
std::shared_ptr<Object> RemoteWorkspace::ToolWindow() const {
    return Get<std::shared_ptr<Object>>("ToolWindow");
}
void RemoteWorkspace::StartProgress(const std::string& action, std::int32_t totalLength) {
    Ask<void>("StartProgress", action, totalLength);
}
void RemoteWorkspace::StartStep(const std::string& act) { Ask<void>("StartStep", act); }
void RemoteWorkspace::FinishStep(std::int32_t length) { Ask<void>("FinishStep", length); }
void RemoteWorkspace::FinishProgress() { Ask<void>("FinishProgress"); }
std::string RemoteWorkspace::SQLID(const std::string& id, Value& selStart) {
    return Ask<std::string>("SQLID", id, selStart);
}
std::string RemoteWorkspace::SQLInteger(const std::string& repr, Value& selStart) {
    return Ask<std::string>("SQLInteger", repr, selStart);
}
void RemoteWorkspace::LoadTableCombo(TableCombo& cmbTable, const Value& tableId) {
    Ask<void>("LoadTableCombo", cmbTable, tableId);
}
std::string RemoteWorkspace::GetProjectSettings(const std::string& propName) {
    return Ask<std::string>("GetProjectSettings", propName);
}
void RemoteWorkspace::SetProjectSettings(const std::string& propName, const std::string& propValue) {
    Ask<void>("SetProjectSettings", propName, propValue);
}
std::string RemoteWorkspace::GetFreeTableName(std::string& tableName) {
    return Ask<std::string>("GetFreeTableName", tableName);
}
bool RemoteWorkspace::TableAdd(const std::string& tableName, std::int32_t& tableId, const Value& repObjId,
                               const DateTime& created, const Value& createdVia, const Value& cvrl) {
    return Ask<bool>("TableAdd", tableName, tableId, repObjId, created, createdVia, cvrl);
}
bool RemoteWorkspace::TableAddVerbally(std::string& tableName, std::int32_t& tableId) {
    return Ask<bool>("TableAddVerbally", tableName, tableId);
}
bool RemoteWorkspace::TableDrop(std::int32_t tableId) { return Ask<bool>("TableDrop", tableId); }
bool RemoteWorkspace::DropTableVerbally(std::int32_t tableId, const std::string& tableName) {
    return Ask<bool>("DropTableVerbally", tableId, tableName);
}
bool RemoteWorkspace::TableUpdate(std::int32_t tableId, const Value& tableName, const Value& storageOption,
                                  const Value& comment, const Value& primaryIndexID) {
    return Ask<bool>("TableUpdate", tableId, tableName, storageOption, comment, primaryIndexID);
}
std::string RemoteWorkspace::GetFreeColumnName(std::int32_t tblId, std::string& columnName) {
    return Ask<std::string>("GetFreeColumnName", tblId, columnName);
}
bool RemoteWorkspace::ColumnAdd(std::int32_t tableId, std::string& columnName, std::int32_t typeID,
                                std::int32_t precision, std::int32_t scl, bool isNullable,
                                const Value& comment, const Value& defaultValue, const Value& created,
                                const Value& createdVia, const Value& cvrl, std::int32_t afterID,
                                std::int32_t& columnId) {
    return Ask<bool>("ColumnAdd", tableId, columnName, typeID, precision, scl, isNullable, comment,
                     defaultValue, created, createdVia, cvrl, afterID, columnId);
}
std::int32_t RemoteWorkspace::ColumnImport(std::int32_t tabID, const std::string& fieldName,
                                           std::int32_t sqlType, std::int32_t sqlScale, std::int32_t sqlPrec,
                                           const Value& created, const Value& createdVia, const Value& cvrl,
                                           std::string& resultColumnName) {
    return Ask<std::int32_t>("ColumnImport", tabID, fieldName, sqlType, sqlScale, sqlPrec, created,
                             createdVia, cvrl, resultColumnName);
}
std::int32_t RemoteWorkspace::ColumnCopy(std::int32_t sourceColumnID, std::int32_t destTabID,
                                         std::int32_t destAfterID) {
    return Ask<std::int32_t>("ColumnCopy", sourceColumnID, destTabID, destAfterID);
}
bool RemoteWorkspace::ColumnDrop(std::int32_t columnId) { return Ask<bool>("ColumnDrop", columnId); }
bool RemoteWorkspace::ColumnUpdate(std::int32_t columnId, const Value& columnName, const Value& typeID,
                                   const Value& precision, const Value& scl, const Value& isNullable,
                                   const Value& comment, const Value& defaultValue) {
    return Ask<bool>("ColumnUpdate", columnId, columnName, typeID, precision, scl, isNullable, comment,
                     defaultValue);
}
bool RemoteWorkspace::GetCompatibleType(std::int32_t length, std::int32_t fraction,
                                        const std::string& picture, const std::string& usage,
                                        std::int32_t& sqlType, std::int32_t& sqlScale,
                                        std::int32_t& sqlPrec) {
    return Ask<bool>("GetCompatibleType", length, fraction, picture, usage, sqlType, sqlScale, sqlPrec);
}
std::int32_t RemoteWorkspace::PrimaryAdd(std::int32_t tabID) {
    return Ask<std::int32_t>("PrimaryAdd", tabID);
}
std::shared_ptr<Collection> RemoteWorkspace::PrimaryKeyColumns(std::int32_t tabID) {
    return Ask<std::shared_ptr<Collection>>("PrimaryKeyColumns", tabID);
}
bool RemoteWorkspace::IndexMatch(std::int32_t indexID, const Collection& columnIDs) {
    return Ask<bool>("IndexMatch", indexID, columnIDs);
}
bool RemoteWorkspace::ForeignAdd(std::int32_t tableId, std::int32_t refTableId, const std::string& keyName,
                                 std::int32_t& keyID) {
    return Ask<bool>("ForeignAdd", tableId, refTableId, keyName, keyID);
}
bool RemoteWorkspace::ForeignUpdate(std::int32_t keyID, const Value& keyName, const Value& howDelete,
                                    const Value& cvrl) {
    return Ask<bool>("ForeignUpdate", keyID, keyName, howDelete, cvrl);
}
bool RemoteWorkspace::ForeignDrop(std::int32_t keyID) { return Ask<bool>("ForeignDrop", keyID); }
bool RemoteWorkspace::IndexAdd(std::int32_t tableId, const std::string& indexName, std::int32_t& indexID) {
    return Ask<bool>("IndexAdd", tableId, indexName, indexID);
}
bool RemoteWorkspace::IndexUpdate(std::int32_t indexID, const Value& indexName, const Value& unique,
                                  const Value& comment) {
    return Ask<bool>("IndexUpdate", indexID, indexName, unique, comment);
}
bool RemoteWorkspace::IndexDrop(std::int32_t indexID) { return Ask<bool>("IndexDrop", indexID); }
void RemoteWorkspace::RefreshBrowser() { Ask<void>("RefreshBrowser"); }
void RemoteWorkspace::Verify() { Ask<void>("Verify"); }
std::string RemoteWorkspace::MethodName() const { return Get<std::string>("MethodName"); }
void RemoteWorkspace::SetMethodName(const std::string& value) { Put("MethodName", value); }

}  // namespace tessel

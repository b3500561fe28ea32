#pragma once

#include "schema/component_state.h"
#include "tessel/vntws.h"

namespace tessel {

// The workspace over the component's state, which outlives it. While no project is open, what needs the
// database throws ErrorKind::Host.
class Workspace : public VNTWS {
  public:
    explicit Workspace(ComponentState& state) : state_(state) {}

    Value Call(std::string_view member, CallKind kind, Arguments& arguments) override;

    std::string MethodID() const override { return methodID_; }
    void SetMethodID(const std::string& value) override { methodID_ = value; }
    std::int16_t ReturnCode() const override { return returnCode_; }
    void SetReturnCode(std::int16_t value) override { returnCode_ = value; }
    std::int32_t SelectedTabID() const override { return selectedTabID_; }
    void SetSelectedTabID(std::int32_t value) override { selectedTabID_ = value; }
    std::string CVRL() const override;
    void SetCVRL(const std::string& value) override;
    std::string ToolID() const override { return "VNT"; }
    std::shared_ptr<Object> ProjectDB() const override;
    std::string DatabaseFilename() const override { return state_.databaseFilename; }
    std::shared_ptr<Object> objComposite() const override { return state_.schemaObject; }
    std::shared_ptr<Object> ToolWindow() const override { return state_.window; }

    void StartProgress(const std::string& action, std::int32_t totalLength) override;
    void StartStep(const std::string& act) override;
    void FinishStep(std::int32_t length) override;
    void FinishProgress() override;

    std::string SQLID(const std::string& id, Value& selStart) override;
    std::string SQLInteger(const std::string& repr, Value& selStart) override;
    void LoadTableCombo(TableCombo& cmbTable, const Value& tableId) override;
    std::string GetProjectSettings(const std::string& propName) override;
    void SetProjectSettings(const std::string& propName, const std::string& propValue) override;

    std::string GetFreeTableName(std::string& tableName) override;
    bool TableAdd(const std::string& tableName, std::int32_t& tableId, const Value& repObjId,
                  const DateTime& created, const Value& createdVia, const Value& cvrl) override;
    bool TableAddVerbally(std::string& tableName, std::int32_t& tableId) override;
    bool TableDrop(std::int32_t tableId) override;
    bool DropTableVerbally(std::int32_t tableId, const std::string& tableName) override;
    bool TableUpdate(std::int32_t tableId, const Value& tableName, const Value& storageOption,
                     const Value& comment, const Value& primaryIndexID) override;

    std::string GetFreeColumnName(std::int32_t tblId, std::string& columnName) override;
    bool ColumnAdd(std::int32_t tableId, std::string& columnName, std::int32_t typeID, std::int32_t precision,
                   std::int32_t scl, bool isNullable, const Value& comment, const Value& defaultValue,
                   const Value& created, const Value& createdVia, const Value& cvrl, std::int32_t afterID,
                   std::int32_t& columnId) override;
    std::int32_t ColumnImport(std::int32_t tabID, const std::string& fieldName, std::int32_t sqlType,
                              std::int32_t sqlScale, std::int32_t sqlPrec, const Value& created,
                              const Value& createdVia, const Value& cvrl,
                              std::string& resultColumnName) override;
    std::int32_t ColumnCopy(std::int32_t sourceColumnID, std::int32_t destTabID,
                            std::int32_t destAfterID) override;
    bool ColumnDrop(std::int32_t columnId) override;
    bool ColumnUpdate(std::int32_t columnId, const Value& columnName, const Value& typeID,
                      const Value& precision, const Value& scl, const Value& isNullable, const Value& comment,
                      const Value& defaultValue) override;
    bool GetCompatibleType(std::int32_t length, std::int32_t fraction, const std::string& picture,
                           const std::string& usage, std::int32_t& sqlType, std::int32_t& sqlScale,
                           std::int32_t& sqlPrec) override;

    std::int32_t PrimaryAdd(std::int32_t tabID) override;
    std::shared_ptr<Collection> PrimaryKeyColumns(std::int32_t tabID) override;
    bool IndexMatch(std::int32_t indexID, const Collection& columnIDs) override;
    bool ForeignAdd(std::int32_t tableId, std::int32_t refTableId, const std::string& keyName,
                    std::int32_t& keyID) override;
    bool ForeignUpdate(std::int32_t keyID, const Value& keyName, const Value& howDelete,
                       const Value& cvrl) override;
    bool ForeignDrop(std::int32_t keyID) override;
    bool IndexAdd(std::int32_t tableId, const std::string& indexName, std::int32_t& indexID) override;
    bool IndexUpdate(std::int32_t indexID, const Value& indexName, const Value& unique,
                     const Value& comment) override;
    bool IndexDrop(std::int32_t indexID) override;

    void RefreshBrowser() override;
    void Verify() override;
    std::string MethodName() const override { return methodName_; }
    void SetMethodName(const std::string& value) override { methodName_ = value; }

  private:
    [[nodiscard]] tessel::ToolWindow& Window() const { return state_.Window(); }
    [[nodiscard]] db::Database& Db() const { return state_.Database(); }
    // A critical message box with the title of the application.
    void Complain(const std::string& text);

    ComponentState& state_;
    std::string methodID_;
    std::string methodName_;
    std::int16_t returnCode_ = 0;
    std::int32_t selectedTabID_ = -1;
};

}  // namespace tessel

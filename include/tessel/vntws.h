#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "tessel/object.h"

namespace tessel {

// What LoadTableCombo fills: the editor's combo boxes, or a list of the caller's own.
class TableCombo : public Object {
  public:
    virtual void Clear() = 0;
    virtual void AddItem(const std::string& text, std::int32_t itemData) = 0;  // after the last
    [[nodiscard]] virtual int ItemCount() const = 0;
    [[nodiscard]] virtual int SelectedIndex() const = 0;  // from 0; -1 while none is selected
    virtual void Select(int index) = 0;
};

// The workspace: everything that can be done to the schema of the open project.
//
// The members stand in the order of their slots; a property with a reader and a writer takes two, reader
// first. The same members answer to Call under their names.
//
// Identifiers are the database's (32 bits, from 1 up); -1 means no row. Text is UTF-8, and counts of it are
// counts of characters. An operation that fails as expected says so by its result and leaves the database as
// it was, except where its comment says otherwise. Each call that changes the schema is one transaction and
// removes the project setting "Verified".
//
// Optional parameters are variants: not passed (Missing) leaves the field as it is.
class VNTWS : public Object {
  public:
    // Storage for the add-on protocol; the workspace itself reads none of it.
    [[nodiscard]] virtual std::string MethodID() const = 0;  // NAME of the menu's entry that runs, or ProgID
    virtual void SetMethodID(const std::string& value) = 0;
    [[nodiscard]] virtual std::int16_t ReturnCode() const = 0;  // 0 before a run; free for the tool
    virtual void SetReturnCode(std::int16_t value) = 0;
    [[nodiscard]] virtual std::int32_t SelectedTabID() const = 0;  // -1 before; selected after a success
    virtual void SetSelectedTabID(std::int32_t value) = 0;

    // The reference text that the window's origin viewer shows.
    [[nodiscard]] virtual std::string CVRL() const = 0;
    virtual void SetCVRL(const std::string& value) = 0;

    [[nodiscard]] virtual std::string ToolID() const = 0;                 // "VNT"
    [[nodiscard]] virtual std::shared_ptr<Object> ProjectDB() const = 0;  // the open schema database, or none
    [[nodiscard]] virtual std::string DatabaseFilename() const = 0;       // full path of that database
    [[nodiscard]] virtual std::shared_ptr<Object> objComposite() const = 0;  // the project's schema object
    [[nodiscard]] virtual std::shared_ptr<Object> ToolWindow() const = 0;    // the main window

    // Progress of a long operation, shown by the main window, which is disabled between Start and Finish.
    // `totalLength` and `length` are in units of the caller's choice.
    virtual void StartProgress(const std::string& action, std::int32_t totalLength) = 0;
    virtual void StartStep(const std::string& act) = 0;
    virtual void FinishStep(std::int32_t length) = 0;
    virtual void FinishProgress() = 0;

    // The identifier rule: drops what a name may not hold. `selStart`, when passed, is a caret position in
    // characters and moves with the characters before it. Throws when the workspace options lack the encoding
    // of the object computer.
    [[nodiscard]] virtual std::string SQLID(const std::string& id, Value& selStart) = 0;
    // Keeps the digits 0 to 9 only; `selStart` as for SQLID.
    [[nodiscard]] virtual std::string SQLInteger(const std::string& repr, Value& selStart) = 0;

    // Fills `cmbTable` with the tables in name order, each with its TabID as item data, and selects `tableId`
    // (-1 when not passed), or else the first.
    virtual void LoadTableCombo(TableCombo& cmbTable, const Value& tableId) = 0;

    // Named texts of the project. A setting that is absent reads as the empty text; setting the empty text
    // removes it. Database errors are thrown.
    [[nodiscard]] virtual std::string GetProjectSettings(const std::string& propName) = 0;
    virtual void SetProjectSettings(const std::string& propName, const std::string& propValue) = 0;

    // A table name that is not in use: the identifier rule's form of `tableName`, or of its first 47
    // characters with the first free number after it. An empty `tableName` becomes "T".
    [[nodiscard]] virtual std::string GetFreeTableName(std::string& tableName) = 0;
    // Adds a table without columns. False for an empty name, one that the identifier rule would change, one
    // too long, or one in use.
    virtual bool TableAdd(const std::string& tableName, std::int32_t& tableId, const Value& repObjId,
                          const DateTime& created, const Value& createdVia, const Value& cvrl) = 0;
    // Asks the user for the name, tells them what is wrong with it, and adds the table.
    virtual bool TableAddVerbally(std::string& tableName, std::int32_t& tableId) = 0;
    // Drops the table with its columns, indexes and keys and the keys that refer to it. The column lists of
    // its indexes stay, and the column pairs of those that referred to it. Database errors are thrown.
    virtual bool TableDrop(std::int32_t tableId) = 0;
    // Asks the user first, naming the tables that refer to it. False when the user declines, or is told that
    // it cannot be dropped.
    virtual bool DropTableVerbally(std::int32_t tableId, const std::string& tableName) = 0;
    // An empty `storageOption` or `comment` empties its field, as Null does; so does Null for
    // `primaryIndexID`, which is not looked up. False when there is no such table, or the name is refused or
    // in use.
    virtual bool TableUpdate(std::int32_t tableId, const Value& tableName, const Value& storageOption,
                             const Value& comment, const Value& primaryIndexID) = 0;

    // As GetFreeTableName, among the columns of one table; an empty `columnName` becomes "C".
    [[nodiscard]] virtual std::string GetFreeColumnName(std::int32_t tblId, std::string& columnName) = 0;
    // Adds a column after the column `afterID` (-1: first), under the free form of `columnName`, which is
    // handed back. False when `afterID` names no column, or when the name is refused: the later columns have
    // then moved up by one already.
    virtual bool ColumnAdd(std::int32_t tableId, std::string& columnName, std::int32_t typeID,
                           std::int32_t precision, std::int32_t scl, bool isNullable, const Value& comment,
                           const Value& defaultValue, const Value& created, const Value& createdVia,
                           const Value& cvrl, std::int32_t afterID, std::int32_t& columnId) = 0;
    // Adds a nullable column at the end from a field description whose type GetCompatibleType worked out:
    // `sqlScale` holds the precision and `sqlPrec` the scale. Returns the new ColumnID; -1 when the name is
    // refused. When the database fails, 0 or an identifier that no row has.
    virtual std::int32_t ColumnImport(std::int32_t tabID, const std::string& fieldName, std::int32_t sqlType,
                                      std::int32_t sqlScale, std::int32_t sqlPrec, const Value& created,
                                      const Value& createdVia, const Value& cvrl,
                                      std::string& resultColumnName) = 0;
    // Copies a column after the column `destAfterID` of the table `destTabID` (-1: first, 0: last) under a
    // free name. Returns the new ColumnID, or -1.
    virtual std::int32_t ColumnCopy(std::int32_t sourceColumnID, std::int32_t destTabID,
                                    std::int32_t destAfterID) = 0;
    // Drops the column and its places in indexes and keys; true also when there is no such column.
    virtual bool ColumnDrop(std::int32_t columnId) = 0;
    // An empty `comment` empties its field, as Null does; `defaultValue` is stored as passed. A `precision`
    // or `scl` of -1 leaves its field as it is, and becomes 0 where a passed `typeID` takes none. False when
    // there is no such column, the name is refused or in use, or one of those two is no 16-bit number.
    virtual bool ColumnUpdate(std::int32_t columnId, const Value& columnName, const Value& typeID,
                              const Value& precision, const Value& scl, const Value& isNullable,
                              const Value& comment, const Value& defaultValue) = 0;
    // The type for a record field of `length` and `fraction` digits or of the picture `picture`; `usage` is
    // not consulted. `sqlScale` hands back the precision, `sqlPrec` the scale. A `sqlType` that is not 0 is
    // kept, and the picture passed over. False, with all three as they were, when there is no picture to tell
    // the type by, or no length for a type that needs one.
    virtual bool GetCompatibleType(std::int32_t length, std::int32_t fraction, const std::string& picture,
                                   const std::string& usage, std::int32_t& sqlType, std::int32_t& sqlScale,
                                   std::int32_t& sqlPrec) = 0;

    // The IndexID of the table's primary index, which is made when there is none. A missing table throws.
    virtual std::int32_t PrimaryAdd(std::int32_t tabID) = 0;
    // The ColumnIDs of the primary index in its order, each under the key "c" + ColumnID.
    [[nodiscard]] virtual std::shared_ptr<Collection> PrimaryKeyColumns(std::int32_t tabID) = 0;
    // Whether the index holds exactly the columns in `columnIDs` (built as PrimaryKeyColumns builds it), in
    // any order.
    [[nodiscard]] virtual bool IndexMatch(std::int32_t indexID, const Collection& columnIDs) = 0;
    // Adds a key from `tableId` to `refTableId` with the delete rule "R" and no columns. False when the name
    // is refused; two keys may bear the same.
    virtual bool ForeignAdd(std::int32_t tableId, std::int32_t refTableId, const std::string& keyName,
                            std::int32_t& keyID) = 0;
    // `howDelete` is "R" (restrict) or "C" (cascade), in either case, or Null; Null empties `cvrl`. False
    // when there is no such key, or the name or the delete rule is refused.
    virtual bool ForeignUpdate(std::int32_t keyID, const Value& keyName, const Value& howDelete,
                               const Value& cvrl) = 0;
    // Drops the key with its column pairs. False when there is no such key.
    virtual bool ForeignDrop(std::int32_t keyID) = 0;
    // Adds an index without columns that is not unique. False when the name is refused; two may bear the
    // same.
    virtual bool IndexAdd(std::int32_t tableId, const std::string& indexName, std::int32_t& indexID) = 0;
    // `comment` is stored as it is passed, also when it is empty. False when there is no such index, or the
    // name is refused.
    virtual bool IndexUpdate(std::int32_t indexID, const Value& indexName, const Value& unique,
                             const Value& comment) = 0;
    // Drops the index; a table whose primary index it was goes on naming it. False when there is no such
    // index.
    virtual bool IndexDrop(std::int32_t indexID) = 0;

    // Reads the database afresh and shows it.
    virtual void RefreshBrowser() = 0;
    // Verifies the schema and shows what was found.
    virtual void Verify() = 0;

    // Storage for the add-on protocol.
    [[nodiscard]] virtual std::string MethodName() const = 0;  // text of the menu's entry, or ProgID
    virtual void SetMethodName(const std::string& value) = 0;
};

}  // namespace tessel

#include "schema/object_keys.h"
#include "verify/findings.h"

namespace tessel {

namespace {

std::string TypeText(const SqlTypeCatalogue& types, const db::Query& column) {
    return types.SqlTypeText(column.Integer("TypeID"), column.Integer("Precision"), column.Integer("Scale"));
}

// One foreign key, and the type texts of the columns that it refers to under their column keys.
class KeyRules {
  public:
    KeyRules(Findings& findings, std::int32_t tabID, const db::Query& key)
        : findings_(findings),
          tabID_(tabID),
          keyID_(key.Integer("KeyID")),
          refTabID_(key.Integer("RefTabID")),
          keyName_(key.Text("KeyName")) {}

    void Check() {
        ReadReferencedColumns();
        const bool isIndexed = HasUniqueIndex();
        if (referenced_.Count() == 0) RecordKey(Rule::KeyEmpty);
        if (isIndexed)
            CheckTypes();
        else
            RecordKey(Rule::NoUniqueIndex);
    }

  private:
    void RecordKey(Rule rule) { findings_.Record(Place::Key(tabID_, keyID_), rule, {keyName_}); }

    void ReadReferencedColumns() {
        for (auto column =
                 findings_.Select("select C.ColumnID, C.ColumnName, C.TypeID, C.Precision, C.Scale, "
                                  "FKC.ColumnID as LinkedColId from ForeignKeyColumns FKC, Columns C where "
                                  "FKC.KeyID = " +
                                  std::to_string(keyID_) + " and FKC.RefColumnID = C.ColumnID");
             column.Next();) {
            const std::int32_t columnID = column.Integer("ColumnID");
            if (column.Integer("LinkedColId") == columnID)
                findings_.Record(Place::KeyColumn(tabID_, keyID_, columnID), Rule::RefersToItself,
                                 {column.Text("ColumnName")});
            AddReferenced(columnID, column);
        }
    }

    // A column that is referred to twice has one type and counts once in an index.
    void AddReferenced(std::int32_t columnID, const db::Query& column) {
        std::string key = ColumnKey(columnID);
        if (!referenced_.HasKey(key))
            referenced_.Add(TypeText(findings_.State().sqlTypes, column), std::move(key));
    }

    bool HasUniqueIndex() {
        VNTWS& workspace = *WorkspaceOf(findings_.State());
        for (auto index = findings_.Select("select IndexID from Indices where TabId = " +
                                           std::to_string(refTabID_) + " and Unique = True");
             index.Next();)
            if (workspace.IndexMatch(index.Integer("IndexID"), referenced_)) return true;
        return false;
    }

    // A column whose referenced column is not there matches no type.
    void CheckTypes() {
        for (auto column = findings_.Select("select C.TypeID, C.Precision, C.Scale, FKC.RefColumnID from "
                                            "ForeignKeyColumns FKC, Columns C where "
                                            "FKC.KeyID = " +
                                            std::to_string(keyID_) + " and FKC.ColumnID = C.ColumnID");
             column.Next();) {
            const Value* type = referenced_.Find(ColumnKey(column.Integer("RefColumnID")));
            if (!type || *type != Value(TypeText(findings_.State().sqlTypes, column)))
                RecordKey(Rule::TypeMismatch);
        }
    }

    Findings& findings_;
    std::int32_t tabID_;
    std::int32_t keyID_;
    std::int32_t refTabID_;
    std::string keyName_;
    Collection referenced_;
};

}  // namespace

void CheckForeignKeys(Findings& findings, std::int32_t tabID) {
    for (auto key = findings.Select("select KeyID, RefTabID, KeyName from ForeignKeys where TabID=" +
                                    std::to_string(tabID));
         key.Next();)
        KeyRules(findings, tabID, key).Check();
}

}  // namespace tessel

#include "schema/action.h"
#include "schema/identifiers.h"
#include "schema/object_keys.h"
#include "schema/project_settings.h"
#include "schema/workspace.h"
#include "tessel/convert.h"

namespace tessel {

bool Workspace::ForeignAdd(std::int32_t tableId, std::int32_t refTableId, const std::string& keyName,
                           std::int32_t& keyID) {
    const bool added = RunTrapped(state_, [&] {
        db::TableSet row = Db().OpenTable("ForeignKeys");
        row.AddNew();
        if (!SetNameField(state_, row, "KeyName", keyName)) return false;
        row.Set("TabID", tableId);
        row.Set("RefTabId", refTableId);
        row.Set("HowDelete", "R");
        keyID = ToInt32(row.Get("KeyID"));
        row.Save();
        RemoveVerifiedMark(Db());
        return true;
    });
    if (added)
        RunIgnoringErrors([&] {
            Window().AddConnector(ForeignKeyKey(keyID), TableKey(tableId), TableKey(refTableId), keyName);
        });
    return added;
}

bool Workspace::ForeignUpdate(std::int32_t keyID, const Value& keyName, const Value& howDelete,
                              const Value& cvrl) {
    const bool updated = RunTrapped(state_, [&] {
        db::TableSet row = Db().OpenTable("ForeignKeys");
        row.SetIndex("PrimaryKey");
        if (!row.Seek({keyID})) return false;
        row.Edit();
        if (!keyName.IsMissing() && !SetNameField(state_, row, "KeyName", keyName)) return false;
        if (!howDelete.IsMissing()) row.Set("HowDelete", howDelete);
        if (!cvrl.IsMissing()) row.Set("CVRL", cvrl);
        row.Save();
        RemoveVerifiedMark(Db());
        return true;
    });
    if (updated && !keyName.IsMissing())
        RunIgnoringErrors([&] { Window().SetConnectorText(ForeignKeyKey(keyID), ToText(keyName)); });
    return updated;
}

bool Workspace::ForeignDrop(std::int32_t keyID) {
    const std::string identifier = std::to_string(keyID);
    const bool dropped = RunTrapped(state_, [&] {
        if (!Db().Select("select TabID from ForeignKeys where KeyID = " + identifier).Next()) return false;
        Db().Execute("Delete from ForeignKeyColumns fkc where  KeyID=" + identifier);
        if (Db().Execute("Delete from ForeignKeys  where  KeyID = " + identifier) == 0) return false;
        RemoveVerifiedMark(Db());
        return true;
    });
    if (dropped) RunIgnoringErrors([&] { Window().RemoveConnector(ForeignKeyKey(keyID)); });
    return dropped;
}

}  // namespace tessel

#include <optional>

#include "schema/action.h"
#include "schema/identifiers.h"
#include "schema/project_settings.h"
#include "schema/workspace.h"
#include "tessel/convert.h"

namespace tessel {

namespace {

constexpr std::int32_t first = -1;  // as a place: before every column
constexpr std::int32_t last = 0;    // as a place of ColumnCopy: after every column
constexpr std::int32_t unchanged = -1;

Value NullWhenMissing(const Value& value) { return value.IsMissing() ? Value() : value; }
Value NowWhenNull(const Value& value) { return value.IsMissing() || value.IsNull() ? Value(Now()) : value; }

// The position after which a new column goes; nothing when `afterID` names no column.
std::optional<std::int32_t> PlaceAfter(db::Database& database, std::int32_t afterID) {
    if (afterID == first) return 0;
    auto row = database.Select("select Position from Columns where ColumnID=" + std::to_string(afterID));
    if (!row.Next()) return {};
    return row.Integer("Position");
}

std::int32_t LastColumn(db::Database& database, std::int32_t tableId) {
    auto row = database.Select("select ColumnID from Columns where TabID=" + std::to_string(tableId) +
                               " order by Position desc, ColumnID desc limit 1");
    return row.Next() ? row.Integer("ColumnID") : first;
}

std::int32_t NextPosition(db::Database& database, std::int32_t tableId) {
    auto row =
        database.Select("select Max(Position) as Pos from Columns where TabId = " + std::to_string(tableId));
    return row.Next() ? row.Integer("Pos") + 1 : 1;
}

std::int32_t GivenOrUnchanged(const Value& value) { return value.IsMissing() ? unchanged : ToInt16(value); }

}  // namespace

std::string Workspace::GetFreeColumnName(std::int32_t tblId, std::string& columnName) {
    db::TableSet columns = Db().OpenTable("Columns");
    columns.SetIndex("TableIDColName");
    return GetFreeName(state_, columnName, "C", [&](const std::string& name) {
        return columns.Seek({tblId, name});
    });
}

bool Workspace::ColumnAdd(std::int32_t tableId, std::string& columnName, std::int32_t typeID,
                          std::int32_t precision, std::int32_t scl, bool isNullable, const Value& comment,
                          const Value& defaultValue, const Value& created, const Value& createdVia,
                          const Value& cvrl, std::int32_t afterID, std::int32_t& columnId) {
    return RunTrapped(state_, [&] {
        const auto place = PlaceAfter(Db(), afterID);
        if (!place) return false;
        Db().Execute("update Columns set Position = Position+1 where TabID=" + std::to_string(tableId) +
                     " and Position>" + std::to_string(*place));
        db::TableSet row = Db().OpenTable("Columns");
        row.AddNew();
        const std::string name = GetFreeColumnName(tableId, columnName);
        if (!SetNameField(state_, row, "ColumnName", name)) return false;
        row.Set("TabID", tableId);
        row.Set("Precision", precision);
        row.Set("Scale", scl);
        row.Set("Position", *place + 1);
        row.Set("TypeID", typeID);
        row.Set("IsNullable", isNullable);
        row.Set("Comments", comment.IsEmptyText() ? Value() : NullWhenMissing(comment));
        row.Set("DefaultValue", NullWhenMissing(defaultValue));
        row.Set("Created", NowWhenNull(created));
        row.Set("CreatedVia", NullWhenMissing(createdVia));
        row.Set("CVRL", NullWhenMissing(cvrl));
        columnId = ToInt32(row.Get("ColumnID"));
        columnName = name;
        row.Save();
        RemoveVerifiedMark(Db());
        return true;
    });
}

std::int32_t Workspace::ColumnImport(std::int32_t tabID, const std::string& fieldName, std::int32_t sqlType,
                                     std::int32_t sqlScale, std::int32_t sqlPrec, const Value& created,
                                     const Value& createdVia, const Value& cvrl,
                                     std::string& resultColumnName) {
    std::int32_t columnId = 0;
    RunTrapped(state_, [&] {
        const std::int32_t position = NextPosition(Db(), tabID);
        db::TableSet row = Db().OpenTable("Columns");
        row.AddNew();
        row.Set("TabID", tabID);
        std::string wanted = fieldName;
        resultColumnName = GetFreeColumnName(tabID, wanted);
        if (!SetNameField(state_, row, "ColumnName", resultColumnName)) {
            columnId = -1;
            return false;
        }
        row.Set("Position", position);
        row.Set("TypeID", sqlType);
        row.Set("Precision", sqlScale);  // the two arguments carry each other's value
        row.Set("Scale", sqlPrec);
        row.Set("IsNullable", true);
        columnId = ToInt32(row.Get("ColumnID"));
        row.Set("Created", NowWhenNull(created));
        row.Set("CreatedVia", createdVia.IsMissing() || createdVia.IsNull() ? Value("") : createdVia);
        row.Set("CVRL", cvrl.IsEmptyText() ? Value() : NullWhenMissing(cvrl));
        row.Save();
        RemoveVerifiedMark(Db());
        return true;
    });
    return columnId;
}

std::int32_t Workspace::ColumnCopy(std::int32_t sourceColumnID, std::int32_t destTabID,
                                   std::int32_t destAfterID) {
    std::int32_t copyID = -1;
    const bool copied = RunTrapped(state_, [&] {
        db::TableSet source = Db().OpenTable("Columns");
        source.SetIndex("PrimaryKey");
        if (!source.Seek({sourceColumnID})) return false;
        std::string name = ToText(source.Get("ColumnName"));
        const std::int32_t afterID = destAfterID == last ? LastColumn(Db(), destTabID) : destAfterID;
        return ColumnAdd(destTabID, name, ToInt32(source.Get("TypeID")), ToInt32(source.Get("Precision")),
                         ToInt32(source.Get("Scale")), ToBoolean(source.Get("IsNullable")),
                         source.Get("Comments"), source.Get("DefaultValue"), source.Get("Created"),
                         source.Get("CreatedVia"), source.Get("CVRL"), afterID, copyID);
    });
    return copied ? copyID : -1;
}

bool Workspace::ColumnDrop(std::int32_t columnId) {
    const std::string identifier = std::to_string(columnId);
    return RunTrapped(state_, [&] {
        Db().Execute("Delete from ForeignKeyColumns where ColumnID = " + identifier +
                     " or RefColumnID = " + identifier);
        Db().Execute("Delete from Columns where ColumnID = " + identifier);
        Db().Execute("delete from IndexColumns where ColumnID = " + identifier);
        RemoveVerifiedMark(Db());
        return true;
    });
}

bool Workspace::ColumnUpdate(std::int32_t columnId, const Value& columnName, const Value& typeID,
                             const Value& precision, const Value& scl, const Value& isNullable,
                             const Value& comment, const Value& defaultValue) {
    const bool nothingGiven = columnName.IsMissing() && typeID.IsMissing() && precision.IsMissing() &&
                              scl.IsMissing() && isNullable.IsMissing() && comment.IsMissing() &&
                              defaultValue.IsMissing();
    if (nothingGiven) return true;
    return RunTrapped(state_, [&] {
        std::int32_t newPrecision = GivenOrUnchanged(precision);
        std::int32_t newScale = GivenOrUnchanged(scl);
        db::TableSet row = Db().OpenTable("Columns");
        row.SetIndex("PrimaryKey");
        if (!row.Seek({columnId})) return false;
        row.Edit();
        if (!columnName.IsMissing() && !SetNameField(state_, row, "ColumnName", columnName)) return false;
        if (!typeID.IsMissing()) {
            const std::int32_t type = ToInt32(typeID);
            row.Set("TypeID", type);
            const SqlTypeInfo& limits = state_.sqlTypes.GetSqlTypeInfo(type);
            if (limits.maxScale == 0) newScale = 0;
            if (limits.maxPrecision == 0) newPrecision = 0;
        }
        if (newPrecision != unchanged) row.Set("Precision", newPrecision);
        if (newScale != unchanged) row.Set("Scale", newScale);
        if (!comment.IsMissing()) row.Set("Comments", comment.IsEmptyText() ? Value() : comment);
        if (!isNullable.IsMissing()) row.Set("IsNullable", ToBoolean(isNullable));
        if (!defaultValue.IsMissing()) row.Set("DefaultValue", defaultValue);
        row.Save();
        RemoveVerifiedMark(Db());
        return true;
    });
}

}  // namespace tessel

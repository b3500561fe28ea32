#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "platform/db/database.h"

namespace tessel::test {

enum class PartComments { Taken, LeftOut };  // those of indexes and keys

// What a schema database says, a line for each table, column, index and key, in an order that depends on the
// names alone. The names of indexes are left out: a server may ask for others.
inline std::vector<std::string> SchemaLines(const std::string& file, PartComments comments) {
    const auto braced = [](const std::string& field) {
        return " || coalesce(' {' || nullif(" + field + ", '') || '}', '') as Line ";
    };
    const std::string ofPart = comments == PartComments::Taken ? braced("X.Comment") : " as Line ";
    const std::string queries[] = {
        "select TableName" + braced("Comments") + "from Tables",
        // The default of a Boolean means the same in any letter case.
        "select TableName || '.' || row_number() over (partition by C.TabID order by Position) || ' ' || "
        "ColumnName || ' ' || SourceTypeName || iif([Precision] = 0, '', '(' || [Precision] || "
        "iif(Scale = 0, '', ',' || Scale) || ')') || iif(IsNullable, '', '!') || coalesce(' = ' || "
        "iif(SourceTypeName = 'BOOLEAN', lower(DefaultValue), DefaultValue), '')" +
            braced("C.Comments") +
            "from Tables T, Columns C, SQLTypes S where C.TabID = T.TabID and S.TypeID = C.TypeID",
        "select TableName || iif(PrimaryIndexID = IndexID, ' primary', iif([Unique], ' unique', ' index')) "
        "|| "
        "(select group_concat(Part, '') from (select ' ' || ColumnName || iif(Direction = 'D', ' desc', '') "
        "as Part from IndexColumns P, Columns C where C.ColumnID = P.ColumnID and P.IndexID = X.IndexID "
        "order by P.Position))" +
            ofPart + "from Tables T, Indices X where X.TabID = T.TabID",
        "select T.TableName || ' key ' || KeyName || ' to ' || R.TableName || ' ' || HowDelete || "
        "(select group_concat(Pair, '') from (select ' ' || C.ColumnName || '>' || F.ColumnName as Pair from "
        "ForeignKeyColumns P, Columns C, Columns F where C.ColumnID = P.ColumnID and F.ColumnID = "
        "P.RefColumnID and P.KeyID = X.KeyID order by F.Position))" +
            ofPart + "from ForeignKeys X, Tables T, Tables R where T.TabID = X.TabID and R.TabID = RefTabId"};
    std::vector<std::string> lines;
    const auto database = db::Database::Open(file);
    for (const auto& query : queries)
        for (auto row = database->Select(query); row.Next();) {
            EXPECT_FALSE(row["Line"].IsNull()) << query;
            lines.push_back(row.Text("Line"));
        }
    std::ranges::sort(lines);
    return lines;
}

}  // namespace tessel::test

#pragma once

#include "addons/tool_host.h"
#include "record_layout/record_layout.h"
#include "support/schema_cases.h"

namespace tessel::test {

// Runs the tool on a schema of its own.
class LayoutTest : public SchemaTest {
  protected:
    std::string Run(const std::string& parameter) {
        return ToText(layout::RecordLayout().Run(host, WorkspaceOf(state), parameter));
    }
    // The layout beside the schema, taken without questions.
    std::string RunOn(const std::string& source, const std::string& more = "") {
        Write(folder / "layout.cpy", source);
        return Run("file=" + folder / "layout.cpy" + ";preview=no" + more);
    }
    // name|type|nullable|comment|origin of each column of the table.
    std::vector<std::string> ColumnsOf(std::int32_t tabID) {
        std::vector<std::string> columns;
        const std::string sql = "select * from Columns where TabID = " + std::to_string(tabID);
        for (auto row = Db().Select(sql + " order by Position"); row.Next();)
            columns.push_back(row.Text("ColumnName") + "|" +
                              state.sqlTypes.SqlTypeText(row.Integer("TypeID"), row.Integer("Precision"),
                                                         row.Integer("Scale")) +
                              "|" + ToText(row["IsNullable"]) + "|" + row.Text("Comments") + "|" +
                              row.Text("CVRL"));
        return columns;
    }

    std::shared_ptr<ToolHost> host = std::make_shared<ToolHost>(frontend->names);
};

}  // namespace tessel::test

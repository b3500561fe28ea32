#pragma once

#include "record_layout/record_layout.h"
#include "support/schema_cases.h"
#include "tessel/convert.h"

namespace tessel::test {

// The host as an add-on sees it.
class ToolHost : public Object {
  public:
    explicit ToolHost(std::string folder) : folder_(std::move(folder)) {}
    Value Call(std::string_view member, CallKind, Arguments& arguments) override {
        if (member == "Language") return language;
        if (member == "ErrorsFile") return folder_ + "/schema.errors";
        EXPECT_EQ(ToInt32(arguments.at(0)), 4) << member;
        return folder_;
    }
    std::string language = "en";

  private:
    std::string folder_;
};

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

    std::shared_ptr<ToolHost> host = std::make_shared<ToolHost>(folder.Path());
};

}  // namespace tessel::test

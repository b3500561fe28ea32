#pragma once

#include "addons/tool_host.h"
#include "sql_script/sql_script.h"
#include "support/schema_cases.h"

namespace tessel::test {

// Runs the tool on a schema of its own.
class ScriptTest : public SchemaCase {
  protected:
    std::string Run(const std::string& parameter) {
        return ToText(sql_script::SqlScript().Run(host, WorkspaceOf(state), parameter));
    }
    std::string Script(const std::string& dialect, const std::string& more = "") {
        Run("dialect=" + dialect + ";file=" + folder / "out.sql" + more);
        return Content(folder / "out.sql");
    }
    void MakeRows(const std::filesystem::path& file) {
        for (const auto& line : LinesOf(file)) ASSERT_GE(Db().Execute(line), 1) << line;
    }

    std::shared_ptr<ToolHost> host = std::make_shared<ToolHost>(frontend->names);
};

}  // namespace tessel::test

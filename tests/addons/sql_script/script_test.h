#pragma once

#include "sql_script/sql_script.h"
#include "support/schema_cases.h"

namespace tessel::test {

// The host as an add-on sees it.
class ToolHost : public Object {
  public:
    explicit ToolHost(std::map<int, std::string> names) : names_(std::move(names)) {}
    Value Call(std::string_view member, CallKind, Arguments& arguments) override {
        if (member == "Language") return language;
        if (member == "ErrorsFile") return names_.at(4) + "/schema.errors";
        return names_.at(ToInt32(arguments.at(0)));
    }
    std::string language = "en";

  private:
    std::map<int, std::string> names_;
};

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

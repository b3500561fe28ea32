#include <array>
#include <stdexcept>
#include <string>
#include <vector>

#include "tessel/add_on.h"
#include "tessel/convert.h"

namespace {

using tessel::Arguments;
using tessel::CallKind;
using tessel::Collection;
using tessel::Object;
using tessel::Value;
using tessel::VNTWS;

constexpr std::int32_t timestampType = 11;

struct AuditColumn {
    std::string name;
    std::string comment;
};

const std::array<AuditColumn, 2> auditColumns{{
    {"CreatedAt", "When the row was made"},
    {"ChangedAt", "When the row was changed last"},
}};

// A table without one of the columns.
struct Gap {
    std::int32_t tabID;
    std::string tableName;
    const AuditColumn* missing;
};

Value Ask(const std::shared_ptr<Object>& object, std::string_view member, Arguments arguments) {
    return object->Call(member, CallKind::Method, arguments);
}

// The rows of a query, each a collection of its fields.
std::vector<std::shared_ptr<Collection>> Select(VNTWS& workspace, const std::string& sql) {
    std::vector<std::shared_ptr<Collection>> rows;
    const Value result = Ask(workspace.ProjectDB(), "Select", {sql});
    for (const auto& row : **result.As<std::shared_ptr<Collection>>())
        rows.push_back(*row.value.As<std::shared_ptr<Collection>>());
    return rows;
}

std::vector<Gap> FindGaps(VNTWS& workspace) {
    std::vector<Gap> gaps;
    for (const auto& column : auditColumns)
        for (const auto& row : Select(workspace,
                                      "select TabID, TableName from Tables T where not exists"
                                      " (select 1 from Columns C where C.TabID = T.TabID"
                                      " and ColumnName = '" +
                                          column.name + "') order by TableName"))
            gaps.push_back(
                {tessel::ToInt32(row->At("TabID")), tessel::ToText(row->At("TableName")), &column});
    return gaps;
}

// -1 for a table without columns.
std::int32_t LastColumnID(VNTWS& workspace, std::int32_t tabID) {
    const auto rows =
        Select(workspace, "select ColumnID from Columns where TabID = " + std::to_string(tabID) +
                              " order by Position desc limit 1");
    return rows.empty() ? -1 : tessel::ToInt32(rows.front()->At("ColumnID"));
}

// Adds "CreatedAt" and "ChangedAt" to every table that lacks them. It asks first, unless the parameter is
// "ask=no".
class AuditColumns : public tessel::AddOn {
  public:
    Value Run(const std::shared_ptr<Object>& /*frontend*/, const std::shared_ptr<VNTWS>& workspace,
              const std::string& parameter) override {
        const auto gaps = FindGaps(*workspace);
        if (gaps.empty()) return "Every table has its audit columns.";
        if (parameter != "ask=no" && !UserAgrees(*workspace, gaps.size())) return {};
        workspace->StartProgress("Audit columns", static_cast<std::int32_t>(gaps.size()));
        for (const auto& gap : gaps) {
            workspace->StartStep(gap.tableName);
            Fill(*workspace, gap);
            workspace->FinishStep(1);
        }
        workspace->FinishProgress();
        workspace->RefreshBrowser();
        workspace->SetSelectedTabID(gaps.front().tabID);
        return std::to_string(gaps.size()) + " columns added";
    }

  private:
    static bool UserAgrees(VNTWS& workspace, std::size_t count) {
        const std::string question = "Add " + std::to_string(count) + " audit columns?";
        return Ask(workspace.ToolWindow(), "Message", {question, "exclamation", "YesNo"}) == Value("Yes");
    }

    // What it throws is shown to the user, who may then drop the columns that were added before.
    static void Fill(VNTWS& workspace, const Gap& gap) {
        std::string name = gap.missing->name;
        std::int32_t columnID = 0;
        const bool isAdded = workspace.ColumnAdd(
            gap.tabID, name, timestampType, 0, 0, /*isNullable=*/true, gap.missing->comment, tessel::Null{},
            tessel::Now(), tessel::Null{}, tessel::Null{}, LastColumnID(workspace, gap.tabID), columnID);
        if (!isAdded) throw std::runtime_error("No column could be added to " + gap.tableName + ".");
    }
};

}  // namespace

TESSEL_COMPONENT({"Example.AuditColumns", tessel::MakeObject<AuditColumns>})

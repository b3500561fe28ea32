#include "record_layout.h"

#include <optional>

#include "forms.h"
#include "host_calls.h"
#include "report.h"
#include "shared/files.h"
#include "tessel/error.h"
#include "tokens.h"

namespace tessel::layout {

namespace {

// One run of the tool.
class ToolRun {
  public:
    ToolRun(Object& frontend, VNTWS& workspace, Language language)
        : frontend_(frontend), workspace_(workspace), language_(language) {}

    std::string Do(const std::string& parameter) {
        options_ = ReadOptions(parameter);
        target_ = TargetOf(options_.table);
        if (options_.file.empty()) return AskAndImport();
        return Import().value_or(Say(Text::NothingImported));
    }

  private:
    std::string Say(Text text, const std::vector<std::string>& details = {}) const {
        return Phrase(language_, text, details);
    }

    Target TargetOf(const std::string& name) {
        if (!name.empty())
            for (const auto& table : ReadTables(workspace_))
                if (SameWord(table.name, name)) return {table.tabID, table.name};
        return {0, name};
    }

    // What cannot be used goes back to the form.
    std::string AskAndImport() {
        while (AskOptions(workspace_, language_, options_, target_)) {
            try {
                if (const auto result = Import()) return *result;
            } catch (const Complaint& complaint) {
                ShowWarning(workspace_, complaint.In(language_));
            }
        }
        return Say(Text::NothingImported);
    }

    // What was done; nothing when the user cancelled.
    std::optional<std::string> Import() {
        Layout layout = ReadLayout(options_.file, options_.format, ReadWholeFile);
        if (!options_.record.empty() || layout.records.size() == 1 || !options_.hasPreview)
            return Import(layout, ChooseRecord(layout, options_.record));
        const auto chosen = AskRecord(workspace_, language_, layout);
        if (!chosen) return {};
        return Import(layout, ChooseRecord(layout, *chosen));
    }

    Target TargetFor(const Item& record) {
        Target target = target_;
        if (target.tabID != 0) return target;
        std::string wanted = target.name.empty() ? record.ShownName() : target.name;
        target.name = workspace_.GetFreeTableName(wanted);
        if (target.name.empty()) throw Complaint(Text::TableRefused, {wanted});
        return target;
    }

    std::optional<std::string> Import(Layout& layout, const Item& record) {
        const Target target = TargetFor(record);
        const Plan plan = MakePlan(record, options_.choices, layout.remarks);
        const auto columns = PrepareColumns(workspace_, target, plan, layout.remarks, language_);
        const auto report = ReportLines(layout, language_);
        if (options_.hasPreview && !ShowPreview(workspace_, language_, target, columns, layout)) return {};
        const Origins origins(layout.files, WorkspaceFolder(frontend_));
        workspace_.SetSelectedTabID(
            ImportColumns(workspace_, target, columns, origins, record.place, language_));
        workspace_.RefreshBrowser();
        LeaveReport(report);
        return Result(target.name, columns.size(), layout.remarks.Count(), report);
    }

    // The import counts also without the list of what it did not use.
    void LeaveReport(const std::vector<std::string>& report) {
        const std::string file = HostProperty(frontend_, "ErrorsFile");
        if (report.empty() || file.empty()) return;
        if (const auto failure = tool::ReplaceFile(file, JoinLines(report) + "\n"))
            ShowWarning(workspace_, Say(Text::FileNotWritten, {file, failure.message()}));
    }

    std::string Result(const std::string& table, std::size_t columns, std::size_t remarks,
                       const std::vector<std::string>& report) const {
        std::string result =
            Say(columns == 1 ? Text::ResultOne : Text::Result, {std::to_string(columns), table});
        if (remarks > 0)
            result += "; " + Say(remarks == 1 ? Text::RemarksOne : Text::Remarks, {std::to_string(remarks)});
        if (remarks > 0 && !options_.hasPreview) result += "\n" + JoinLines(report);
        return result;
    }

    Object& frontend_;
    VNTWS& workspace_;
    Language language_;
    Options options_;
    Target target_;
};

}  // namespace

Value RecordLayout::Run(const std::shared_ptr<Object>& frontend, const std::shared_ptr<VNTWS>& workspace,
                        const std::string& parameter) {
    const Language language = tool::LanguageOf(HostProperty(*frontend, "Language"));
    try {
        return ToolRun(*frontend, *workspace, language).Do(parameter);
    } catch (const Complaint& complaint) {
        throw Error(ErrorKind::File, complaint.In(language));
    }
}

}  // namespace tessel::layout

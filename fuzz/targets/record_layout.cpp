// Any bytes in a copybook give columns or a complaint, and no file is looked for outside the copybook's
// folder. The letters of the first line choose the format and what becomes of tables and redefinitions. What
// follows is the copybook; further ones, A.CPY, B.CPY and so on, are parted from it by form feeds.

#include "record_layout/columns.h"

#include <map>

#include "fuzz/project.h"
#include "fuzz/raw_database.h"
#include "record_layout/import.h"
#include "record_layout/layout.h"
#include "record_layout/report.h"
#include "schema/sql_text.h"

namespace tessel::fuzz {
namespace {

// More take their time, which is no finding.
constexpr std::size_t mostImported = 20;

class Library {
  public:
    explicit Library(std::string text) {
        files_["/lib/main.cpy"] = NextToken(text, '\f');
        for (char name = 'A'; name <= 'E'; ++name)
            files_[std::string("/lib/") + name + ".CPY"] = NextToken(text, '\f');
    }

    std::error_code operator()(const std::string& path, std::string& content) const {
        Require(path.starts_with("/lib/") && path.find('/', 5) == std::string::npos,
                "A copybook is looked for at " + path);
        const auto file = files_.find(path);
        if (file == files_.end()) return std::make_error_code(std::errc::no_such_file_or_directory);
        content = file->second;
        return {};
    }

  private:
    std::map<std::string, std::string> files_;
};

bool Has(const std::string& letters, char letter) { return letters.find(letter) != std::string::npos; }

layout::Choices ChoicesOf(const std::string& letters) {
    return {.occurrences = Has(letters, 'o') ? layout::Occurrences::Once : layout::Occurrences::Expand,
            .redefinitions = Has(letters, 'r') ? layout::Redefinitions::All : layout::Redefinitions::First,
            .hasPrefix = Has(letters, 'p')};
}

void Import(Project& project, layout::Layout& layout, const layout::Plan& plan) {
    const auto workspace = WorkspaceOf(project.state);
    const db::Transaction undone(project.state.Database());
    const layout::Target target{0, "T"};
    const auto columns = layout::PrepareColumns(*workspace, target, plan, layout.remarks, layout::Language{});
    (void)layout::ImportColumns(*workspace, target, columns, layout::Origins(layout.files, "/lib"),
                                layout.records.front().place, layout::Language{});
}

void Read(Project& project, const std::string& letters, const Library& library) {
    const auto format = Has(letters, 'x')   ? layout::Format::Fixed
                        : Has(letters, 'f') ? layout::Format::Free
                                            : layout::Format::Auto;
    auto layout = layout::ReadLayout("/lib/main.cpy", format, library);
    const layout::Item record = layout::ChooseRecord(layout, "");
    const auto plan = layout::MakePlan(record, ChoicesOf(letters), layout.remarks);
    for (const auto& column : plan.columns) (void)plan.NameOf(column);
    if (plan.columns.size() <= mostImported) Import(project, layout, plan);
    (void)layout::JoinLines(layout::ReportLines(layout, layout::Language{}));
}

}  // namespace
}  // namespace tessel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tessel::fuzz;
    static Project project;
    RenewEngineBudget();
    Input input(data, size);
    const std::string letters = input.Line();
    try {
        Read(project, letters, Library(input.Rest()));
    } catch (const tessel::layout::Complaint&) {
        // The copybook is of no use, and the user is told so.
    }
    return 0;
}

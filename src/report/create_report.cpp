#include "report/create_report.h"

#include <vector>

#include "platform/files/file_service.h"
#include "report/navigation.h"
#include "report/page_file.h"
#include "report/table_sections.h"

namespace tessel {

namespace {

struct Table {
    std::int32_t tabID;
    std::string name;
    std::string comments;
};

std::vector<Table> ReadTables(db::Database& database) {
    std::vector<Table> tables;
    for (auto row = database.Select("select * from Tables order by TableName"); row.Next();)
        tables.push_back({row.Integer("TabID"), row.Text("TableName"), row.Text("Comments")});
    return tables;
}

std::vector<std::string> NamesOf(const std::vector<Table>& tables) {
    std::vector<std::string> names;
    for (const auto& table : tables) names.push_back(table.name);
    return names;
}

// The page's folder, made if need be.
std::string PageFolder(const ReportTask& task) {
    const std::string folder = task.generator.OutputFolder() + "\\" + task.options.Attribute("NAME");
    if (!files::FolderExists(folder)) files::CreateFolder(folder);
    return folder;
}

void CopyPictures(host::Frontend& host, const std::string& folder) {
    const std::string pictures = host.GetCorvaneName(host::name_item::images) + "\\Images\\DBSchema\\";
    for (const auto& [from, to] : {std::pair("BigKey.gif", "bigkey.gif"), {"NoNull.gif", "nonull.gif"}}) {
        try {
            files::CopyFile(pictures + from, folder + "\\" + to);
        } catch (const Error&) {
            continue;  // the page is worth reading without its pictures
        }
    }
}

std::string DiagramFile(const ReportTask& task) {
    return files::SplitPath(task.state.databaseFilename).folder + "\\" + task.schemaName + ".dgm.xml";
}

void WriteEmptyPage(const ReportTask& task, PageFile& page) {
    page.Line(R"(<html><head><link href="../Decor.css" rel="stylesheet" type="text/css"></head><body>)");
    page.Line(task.generator.Heading(task.state.texts->Text(606)));
    page.Line("<UL>");
}

void WriteHead(const ReportTask& task, PageFile& page) {
    page.Line(
        "<html><head>\r\n"
        R"(<link href="../Decor.css" rel="stylesheet" type="text/css">)");
    page.Line(R"(<script language="JavaScript1.2">)"
              "\r\nfunction Box_onClick(txt,key,tag) {\r\n"
              R"(   location="#Table:"+txt;)"
              "\r\n}");
    page.Line("</script></head>");
    page.Line("<body>");
    page.Line(task.generator.Heading(task.options.Attribute("CAPTION")));
    page.Line(task.generator.DiagramFragment(DiagramFile(task), task.options.Attribute("NAME")));
}

void CallProgress(const ReportTask& task, std::string_view member, Arguments arguments = {}) {
    (void)task.progress.Call(member, CallKind::Method, arguments);
}

void WriteTables(const ReportTask& task, const std::vector<Table>& tables, PageFile& page) {
    const text::Texts& texts = *task.state.texts;
    const Navigation navigation(NamesOf(tables), texts.Text(557));
    TableSections sections(task.state, page);
    for (std::size_t i = 0; i < tables.size(); ++i) {
        const auto& [tabID, name, comments] = tables[i];
        CallProgress(task, "StartStep", {texts.Format(542, {name})});
        page.Line("<br><br><hr><a id=\"Table:" + name + "\"></a>");
        navigation.WriteTableBar(page, i);
        page.Line("<b>" + texts.Text(543) + ": </b>" + comments);
        sections.Write(tabID);
        CallProgress(task, "FinishStep", {1});
    }
    CallProgress(task, "FinishProgress");
    navigation.WriteClosingBar(page);
    page.Line("</form></body></html>");
}

}  // namespace

void CreateReport(const ReportTask& task) {
    const std::string file = PageFolder(task) + "\\Main.htm";
    PageFile page(file);
    const auto tables = ReadTables(task.state.Database());
    if (tables.empty()) {
        WriteEmptyPage(task, page);
    } else {
        const auto count = static_cast<std::int32_t>(tables.size());
        CallProgress(task, "StartProgress", {task.state.texts->Text(541), count});
        CopyPictures(task.host, files::SplitPath(file).folder);
        WriteHead(task, page);
        WriteTables(task, tables, page);
    }
    page.Close();
}

}  // namespace tessel

#include "workbench/generator.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <filesystem>

#include "platform/component/member_table.h"
#include "platform/diagram/diagram_file.h"
#include "platform/diagram/place.h"
#include "platform/diagram/svg.h"
#include "platform/files/file_error.h"
#include "platform/files/file_service.h"

namespace tessel::workbench {
namespace fs = std::filesystem;
namespace {

using diagram::Escaped;

constexpr const char* indexMark = R"(<meta name="generator" content="Tessel">)";

void MakeFolders(const std::string& folder) {
    std::error_code fault;
    fs::create_directories(files::NativePath(folder), fault);
    if (fault) files::ThrowWriteError("folder", folder, "made", fault.value());
}

// The part of a path as it may stand in a link.
std::string LinkPart(std::string_view part) {
    std::string link;
    for (const char character : part) {
        const auto byte = static_cast<unsigned char>(character);
        const bool plain = std::isalnum(byte) || character == '-' || character == '_' || character == '.';
        link += plain ? std::string(1, character) : fmt::format("%{:02X}", byte);
    }
    return link;
}

// A folder that may not be looked into has none.
bool HasPage(const fs::path& folder) {
    std::error_code passedOver;
    return fs::is_regular_file(folder / "Main.htm", passedOver);
}

// The names of the folders with a page in them, in order.
std::vector<std::string> PagesIn(const std::string& folder) {
    std::vector<std::string> pages;
    std::error_code fault;
    for (fs::directory_iterator entry(folder, fault), end; !fault && entry != end; entry.increment(fault))
        if (HasPage(entry->path())) pages.push_back(entry->path().filename().string());
    if (fault) files::ThrowReadError("folder", folder, "read", fault.value());
    std::ranges::sort(pages);
    return pages;
}

}  // namespace

std::string GeneratorPage::Attribute(const std::string& name) const {
    if (name == "NAME") return name_;
    if (name == "CAPTION") return caption_;
    throw Error(ErrorKind::Xml, "The options of a page have no attribute \"" + name + "\".");
}

Value GeneratorPage::Call(std::string_view member, CallKind kind, Arguments& arguments) {
    static const MemberTable<GeneratorPage> members{Method<&GeneratorPage::Attribute>("Attribute")};
    return members.Call(*this, member, kind, arguments);
}

std::string StandAloneGenerator::OutputFolder() {
    MakeFolders(settings_.outputFolder);
    const std::string styleSheet = settings_.outputFolder + "/Decor.css";
    if (!files::FileExists(styleSheet)) files::CopyFile(settings_.share + "/report/Decor.css", styleSheet);
    return settings_.outputFolder;
}

std::string StandAloneGenerator::Head(const std::string& title) const {
    return fmt::format(
        "<meta charset=\"utf-8\"><meta http-equiv=\"content-language\" content=\"{}\">"
        "<meta name=\"viewport\" content=\"width=device-width,initial-scale=1\">"
        "<title>{}</title>",
        settings_.language, Escaped(title));
}

std::string StandAloneGenerator::Heading(const std::string& text) {
    return fmt::format("{}\n<div class=\"home\"><a href=\"../index.html\">{}</a></div>\n<h1>{}</h1>",
                       Head(text), Escaped(settings_.title), Escaped(text));
}

std::string StandAloneGenerator::DiagramFragment(const std::string& diagramFile,
                                                 const std::string& pageName) {
    diagram::Diagram drawing = settings_.drawing();
    diagram::Diagram placed;
    try {
        if (files::FileExists(diagramFile)) placed = diagram::LoadDiagram(diagramFile);
    } catch (const Error& error) {
        WriteLog(error.what());
    }
    if (placed.boxes.empty())
        diagram::PlaceBoxes(drawing);
    else
        diagram::TakePlaces(drawing, placed);
    return "<div class=\"diagram\">" + diagram::Svg(drawing, pageName) + "</div>";
}

void StandAloneGenerator::WriteIndex() {
    const std::string file = settings_.outputFolder + "/index.html";
    if (files::FileExists(file) && files::ReadFile(file).find(indexMark) == std::string::npos) {
        WriteLog(file + " was written by someone else and stays as it is.");
        return;
    }
    std::string page = fmt::format(
        "<!DOCTYPE html>\n<html><head>{}{}\n<link href=\"Decor.css\" rel=\"stylesheet\">"
        "</head>\n<body class=\"index\">\n<h1>{}</h1>\n<ul>\n",
        Head(settings_.title), indexMark, Escaped(settings_.title));
    for (const auto& name : PagesIn(settings_.outputFolder))
        page += fmt::format("<li><a href=\"{}/Main.htm\">{}</a></li>\n", LinkPart(name), Escaped(name));
    files::ReplaceFile(file, page + "</ul>\n</body></html>\n");
}

Value StandAloneGenerator::Call(std::string_view member, CallKind kind, Arguments& arguments) {
    using Self = StandAloneGenerator;
    static const MemberTable<Self> members{
        Getter<&Self::OutputFolder>("OutputFolder"),       Method<&Self::Heading>("Heading"),
        Method<&Self::DiagramFragment>("DiagramFragment"), Method<&Self::WriteLog>("WriteLog"),
        Method<&Self::StartProgress>("StartProgress"),     Method<&Self::StartStep>("StartStep"),
        Method<&Self::FinishStep>("FinishStep"),           Method<&Self::FinishProgress>("FinishProgress"),
    };
    return members.Call(*this, member, kind, arguments);
}

}  // namespace tessel::workbench

// The small text forms, each by the first letter of the first line: t a texts file, h a list of help pages, l
// an activity log, o an origin reference (the rest of the line) with the source text behind it, c conversions
// of values, y a table of types of SQL scripts, i the identifier rule. Any of them is read or refused, and an
// origin never shows a file outside the workspace.

#include "fuzz/input.h"
#include "platform/text/utf8.h"
#include "schema/sql_text.h"
#include "schema/workspace.h"
#include "sql_script/type_table.h"
#include "support/temporary_folder.h"
#include "tessel/convert.h"
#include "ui/rules/help_contents.h"
#include "ui/rules/origin_content.h"
#include "ui/rules/origin_text.h"
#include "workbench/stand_alone_frontend.h"
#include "workbench/stored_log.h"

namespace tessel::fuzz {
namespace {

constexpr const char* secret = "not for this workspace";

// The input itself may hold the secret: the fuzzer reads comparisons.
void RequireHidden(const std::string& shown, const std::string& input) {
    Require(shown.find(secret) == std::string::npos || input.find(secret) != std::string::npos,
            "A file outside its folder is shown.");
}

// A workspace between files that are not its own.
struct Surroundings {
    Surroundings() {
        auto opened = workbench::WorkspaceFolder::Create(folder / "w", "Main");
        Write(folder / "secret.txt", secret);
        Write(folder / "w.txt", secret);
        std::filesystem::create_symlink(folder / "secret.txt", folder / "w/link.txt");
        opened.File()->Change([](workbench::RepositoryContents& contents) {
            contents.AddObject("O7", "TABLE");
            contents.SetAttributes("O7", {{"Name", "A"}, {"Origin", "source.txt"}});
        });
        state.texts = std::make_shared<text::Texts>(std::string(TESSEL_SHARE) + "/texts", "en");
        state.frontend =
            std::make_shared<workbench::StandAloneFrontend>(std::move(opened), "Main", TESSEL_SHARE, "en");
    }
    TemporaryFolder folder;
    ComponentState state;
};

void ReadTexts(const Surroundings& place, const std::string& content) {
    Write(place.folder / "ja.txt", content);
    const text::Texts texts(place.folder.Path(), "ja");
    for (const auto& [name, text] : texts) {
        Require(texts.Product(name) == text, "A text is not found under its name.");
        (void)text::FormatText(text, {"%2", "one"});
    }
}

void ReadHelp(const Surroundings& place, const std::string& content) {
    std::filesystem::create_directories(place.folder / "help/en");
    Write(place.folder / "help/contents.txt", content);
    Write(place.folder / "help/en/a.md", content);
    const HelpContents help(place.folder / "help/en");
    for (const auto& topic : help.Topics()) {
        RequireHidden(topic.text, content);
        for (const int context : topic.contexts) (void)help.OfContext(context);
    }
}

void ReadLog(const Surroundings& place, const std::string& content) {
    Write(place.folder / "log", content);
    workbench::StoredLog log(place.folder / "log");
    const auto before = log.Activities().size();
    log.Write(content, content);
    const workbench::StoredLog again(place.folder / "log");
    Require(again.Activities().size() >= std::min(before + 1, workbench::StoredLog::mostRead) &&
                again.Activities().back().action == log.Activities().back().action,
            "A logged activity is not read back.");
}

void ReadOrigins(Surroundings& place, const std::string& reference, const std::string& content) {
    Write(place.folder / "w/source.txt", content);
    for (const int codePage : {932, 949, 1252, 65001}) {
        place.state.codePage = std::make_shared<text::CodePage>(codePage);
        const auto origin = ReadOrigin(place.state, reference);
        RequireHidden(origin.text, content);
        const auto readable = ReadableText(content, *place.state.codePage);
        Require(text::IsValidUtf8(readable.text), "A readable text is no UTF-8.");
    }
}

void Convert(const std::string& text) {
    Succeeds([&] { (void)ToInt16(text); });
    Succeeds([&] { Require(ToInt32(ToText(ToInt32(text))) == ToInt32(text), "A number changes as text."); });
    Succeeds([&] { (void)ToInt32(ToText(ToDouble(text))); });
    Succeeds([&] { (void)ToBoolean(text); });
    Succeeds([&] { Require(ToDate(ToText(ToDate(text))) == ToDate(text), "A date changes as text."); });
    Require(!text::IsValidUtf8(text) || text::Encode(text::Decode(text)) == text, "Characters change.");
}

void ReadTypes(const std::string& content) {
    for (const auto& dialect : sql_script::Dialects()) {
        Succeeds([&] {
            const sql_script::TypeTable table(content, "types", dialect, sql_script::Language::English);
            sql_script::Column column;
            column.typeName = "DECIMAL";
            for (column.precision = 0; column.precision < 10; ++column.precision) {
                column.scale = column.precision / 2;
                Require(
                    (table.OtherType() + table.TypeFor(column).value_or("")).find('{') == std::string::npos,
                    "A mark is left in a type.");
            }
        });
    }
}

void FormIdentifier(Surroundings& place, const std::string& text) {
    Value caret = std::int32_t{3};
    const auto workspace = WorkspaceOf(place.state);
    for (const int codePage : {932, 949, 1252, 65001}) {
        place.state.codePage = std::make_shared<text::CodePage>(codePage);
        const std::string identifier = workspace->SQLID(text, caret);
        Require(workspace->SQLID(identifier, caret) == identifier,
                "An identifier is not kept: " + identifier);
        (void)workspace->SQLInteger(text, caret);
    }
}

void Read(Surroundings& place, Input& input) {
    const std::string line = input.Line();
    const std::string rest = input.Rest();
    switch (line.empty() ? '\0' : line.front()) {
        case 't':
            return ReadTexts(place, rest);
        case 'h':
            return ReadHelp(place, rest);
        case 'l':
            return ReadLog(place, rest);
        case 'o':
            return ReadOrigins(place, line.substr(1), rest);
        case 'c':
            return Convert(rest);
        case 'y':
            return ReadTypes(rest);
        default:
            return FormIdentifier(place, rest);
    }
}

}  // namespace
}  // namespace tessel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tessel::fuzz;
    static Surroundings place;
    Input input(data, size);
    Succeeds([&] { Read(place, input); });
    return 0;
}

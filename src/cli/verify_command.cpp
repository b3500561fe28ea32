#include "cli/verify_command.h"

#include <fmt/color.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "cli/exit_codes.h"
#include "cli/headless_session.h"
#include "lines/json_values.h"
#include "platform/text/one_line.h"
#include "verify/db_check.h"

namespace tessel {

namespace {

bool MayColour() {
    const char* refused = std::getenv("NO_COLOR");
    return isatty(STDOUT_FILENO) != 0 && (!refused || !*refused);
}

std::string Styled(const std::string& text, const fmt::text_style& style) {
    return MayColour() ? fmt::format(style, "{}", text) : text;
}

std::string NameOr(const std::string& name, std::int32_t identifier) {
    return name.empty() ? "#" + std::to_string(identifier) : name;
}

// The name that the query finds for the identifier at its end.
std::string NameOf(db::Database& database, const std::string& query, std::int32_t identifier) {
    auto row = database.Select(query + std::to_string(identifier));
    return NameOr(row.Next() ? row.Text(row.Fields().front()) : std::string(), identifier);
}

// "TABLE", or "TABLE.OBJECT" for a finding of a key or a column; "#" and the identifier for what has no name.
std::string PlaceOf(db::Database& database, const ErrorRow& error) {
    const std::string table = NameOr(error.tableName, error.tblID);
    if (error.keyID > 0)
        return table + "." + NameOf(database, "select KeyName from ForeignKeys where KeyID = ", error.keyID);
    if (error.columnID > 0)
        return table + "." +
               NameOf(database, "select ColumnName from Columns where ColumnID = ", error.columnID);
    return table;
}

void PrintLines(db::Database& database, const std::vector<ErrorRow>& errors, const std::string& title) {
    for (const auto& error : errors)
        fmt::print("{}: {}\n", Styled(text::OnOneLine(PlaceOf(database, error)), fmt::emphasis::bold),
                   text::OnOneLine(error.message));
    const auto colour = errors.empty() ? fmt::terminal_color::green : fmt::terminal_color::red;
    fmt::print("{}\n", Styled(title, fmt::fg(colour)));
}

void PrintJson(const std::vector<ErrorRow>& errors) {
    Json list = Json::array();
    for (const auto& error : errors)
        list.push_back({{"TblID", error.tblID},
                        {"KeyID", error.keyID},
                        {"ColumnID", error.columnID},
                        {"TableName", error.tableName},
                        {"Message", error.message}});
    fmt::print("{}\n", list.dump(-1, ' ', false, Json::error_handler_t::replace));
}

}  // namespace

int VerifyCommand(const SessionOptions& options, bool json) {
    const auto headless = OpenHeadless(options);
    DBCheck check(headless.State());
    check.VerifySchema(false);
    const auto errors = check.StoredErrors();
    if (json)
        PrintJson(errors);
    else
        PrintLines(headless.State().Database(), errors, check.TitleFor(errors.size()));
    return errors.empty() ? 0 : findingsCode;
}

}  // namespace tessel

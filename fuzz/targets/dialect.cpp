// A statement in the schema editor's SQL works or is refused, and a quoted text stays that text wherever it
// stands. The first line is the text, what follows is the statement.

#include "fuzz/input.h"
#include "fuzz/raw_database.h"
#include "fuzz/template_copy.h"
#include "platform/db/database.h"
#include "platform/text/utf8.h"
#include "schema/sql_text.h"

namespace tessel::fuzz {
namespace {

constexpr const char* contents =
    "select count(*) as N, sum(length(sql)) as S, (select count(*) from Tables) as T, "
    "(select count(*) from ProjectSettings) as P from sqlite_schema";

std::string ContentsOf(db::Database& database) {
    auto row = database.Select(contents);
    (void)row.Next();
    std::string text;
    for (const auto& field : row.Fields()) text += row.Text(field) + " ";
    return text;
}

// Puts the quoted text in the place of every question mark.
std::string Filled(std::string_view statement, const std::string& quoted) {
    std::string filled;
    for (const char character : statement) filled += character == '?' ? quoted : std::string(1, character);
    return filled;
}

void RequireText(db::Database& database, const std::string& query, const std::string& text) {
    auto row = database.Select(query);
    Require(row.Next() && row.Text("T") == text && !row.Next(), "Another text came back from: " + query);
}

void StoreAndFind(db::Database& database, const std::string& text) {
    const std::string quoted = "'" + SqlQuote(text) + "'";
    database.Execute(Filled("insert into ProjectSettings (PropName, PropValue) values (?, '')", quoted));
    Require(database.Execute(Filled("update ProjectSettings set PropValue=? where PropName=?", quoted)) == 1,
            "The stored text is not found.");
    for (const char* query :
         {"select ? as T", "select PropValue as T from ProjectSettings where PropName in (?)",
          "select PropName as T from ProjectSettings where ? = PropValue order by ?, PropValue",
          "select T from (select ? as T) X where T = ? group by T having max(T) = ?"})
        RequireText(database, Filled(query, quoted), text);
}

bool CanBeStored(const std::string& text) {
    return text.find('\0') == std::string::npos && text::IsValidUtf8(text);
}

void Read(db::Database& database, const std::string& sql) {
    for (auto row = database.Select(sql); row.Next();)
        for (const auto& field : row.Fields()) (void)row[field];
}

void RunAll(db::Database& database, const std::string& text, const std::string& sql) {
    const db::Transaction undone(database);
    const std::string fault = FaultOf([&] { StoreAndFind(database, text); });
    Require(fault.empty() == CanBeStored(text), "A text is taken or refused against the rules. " + fault);
    Succeeds([&] { Read(database, sql); });
    Succeeds([&] { database.Execute(sql); });
}

}  // namespace
}  // namespace tessel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tessel::fuzz;
    RenewEngineBudget();
    static const TemplateCopy copy;
    static const auto database = tessel::db::Database::Open(copy.Path());
    static const std::string before = ContentsOf(*database);
    Input input(data, size);
    const std::string text = input.Line();
    RunAll(*database, text, input.Rest());
    RenewEngineBudget();
    Require(ContentsOf(*database) == before, "The statement left something behind.");
    return 0;
}

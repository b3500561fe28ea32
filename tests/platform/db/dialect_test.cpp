#include "platform/db/dialect.h"

#include <algorithm>

#include "platform/component/convert.h"
#include "platform/db/temporary_database.h"

namespace tessel::db {
namespace {

const std::filesystem::path caseFolder = TESSEL_TEST_DATA "/dialect";

std::vector<std::string> LinesOf(const std::filesystem::path& file) {
    std::vector<std::string> lines;
    std::ifstream stream(file);
    for (std::string line; std::getline(stream, line);)
        if (!line.starts_with('#')) lines.push_back(line);
    return lines;
}

class DialectCases : public TemporaryDatabase, public testing::WithParamInterface<std::string> {
  protected:
    // A row as the case writes it, reduced to the fields that the case names.
    static std::string RowAs(const Query& query, const std::string& expected) {
        std::string row;
        for (std::size_t start = 0; start < expected.size();) {
            const std::size_t end = std::min(expected.find(" | ", start), expected.size());
            const std::string field = expected.substr(start, expected.find('=', start) - start);
            const Value& value = query[field];
            row += (row.empty() ? "" : " | ") + field + "=" + (value.IsNull() ? "~" : ToText(value));
            start = end + 3;
        }
        return row;
    }
};

TEST_P(DialectCases, Run) {
    const auto database = Open();
    for (const std::string& line : LinesOf(caseFolder / "setup.txt"))
        ASSERT_EQ(database->Execute(line), 1) << line;
    const std::vector<std::string> lines = LinesOf(caseFolder / GetParam());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        SCOPED_TRACE(lines[i]);
        if (lines[i].empty()) continue;
        const std::string sql = lines[i].substr(2);
        if (lines[i].starts_with("! ")) {
            EXPECT_EQ(std::to_string(database->Execute(sql)), lines.at(++i));
            continue;
        }
        ASSERT_TRUE(lines[i].starts_with("? "));
        Query query = database->Select(sql);
        for (++i; i < lines.size() && !lines[i].empty(); ++i) {
            ASSERT_TRUE(query.Next()) << "no row for " << lines[i];
            EXPECT_EQ(RowAs(query, lines[i]), lines[i]);
        }
        EXPECT_FALSE(query.Next()) << "more rows than expected";
    }
}

INSTANTIATE_TEST_SUITE_P(Dialect, DialectCases,
                         testing::Values("reading.txt", "writing.txt", "drop_table.txt", "drop_parts.txt",
                                         "edges.txt"));

// Statements that differ in their constants only share one text.
TEST(Rewrite, ConstantsBecomeParameters) {
    const Rewritten first =
        Rewrite("select * from Columns where TabID=17 and ColumnName='it''s' and IsNullable = True");
    const Rewritten second =
        Rewrite("select * from Columns where TabID=9999999999 and ColumnName='a' and IsNullable = false");
    EXPECT_EQ(first.text, second.text);
    EXPECT_EQ(first.parameters, (std::vector<Value>{17, "it's", 1}));
    EXPECT_EQ(second.parameters, (std::vector<Value>{9999999999.0, "a", 0}));
}

TEST(Rewrite, Refuses) {
    using std::string_literals::operator""s;
    const std::vector<std::string> refused{
        "",
        "  ;",
        "select 1; delete from Tables",
        "select * from Tables where TabID=1\0 or 1=1"s,
        "select * from Tables where TableName='\xff'",
        "select * from Tables where TableName='open",
        "select [Tab from Tables",
        "select * from Tables where TabID=?",
        "select * from Tables where TabID=:id",
        "pragma writable_schema=1",
        "drop table Tables",
        "commit",
    };
    for (const std::string& sql : refused)
        EXPECT_EQ(KindThrown([&] { static_cast<void>(Rewrite(sql)); }), ErrorKind::Sql) << sql;
}

// Texts come back as they were, quoted the way that all statements are assembled.
TEST_F(TemporaryDatabase, TextRoundTrip) {
    const auto database = Open();
    for (const std::string text :
         {"'", "|", "'|'", "||", "a | b", "' & Chr(124) & '", "-- /* ; ?", "\"x\"", "日本語's"}) {
        std::string quoted;
        for (const char c : text)
            quoted += c == '\'' ? "''" : c == '|' ? "' & Chr(124) & '" : std::string(1, c);
        database->Execute("delete from ProjectSettings");
        database->Execute("insert into ProjectSettings(PropName,Propvalue) values ('x','" + quoted + "')");
        Query query =
            database->Select("select PropName from ProjectSettings where PropValue='" + quoted + "'");
        EXPECT_TRUE(query.Next()) << text;
        Query value = database->Select("select PropValue from ProjectSettings");
        ASSERT_TRUE(value.Next());
        EXPECT_EQ(value.Text("propvalue"), text);
    }
}

}  // namespace
}  // namespace tessel::db

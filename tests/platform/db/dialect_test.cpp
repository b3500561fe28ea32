#include "platform/db/dialect.h"

#include <algorithm>

#include "platform/db/temporary_database.h"
#include "tessel/convert.h"

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
        "pragma writable_schema=1",
        "drop table Tables",
        "commit",
    };
    for (const std::string& sql : refused)
        EXPECT_EQ(KindThrown([&] { static_cast<void>(Rewrite(sql)); }), ErrorKind::Sql) << sql;
}

}  // namespace
}  // namespace tessel::db

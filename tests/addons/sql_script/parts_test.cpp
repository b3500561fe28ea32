#include <gtest/gtest.h>

#include "sql_script/literal.h"
#include "sql_script/parameters.h"
#include "sql_script/server_names.h"
#include "sql_script/table_order.h"
#include "sql_script/text_tools.h"
#include "sql_script/type_table.h"
#include "support/temporary_folder.h"
#include "tessel/error.h"

namespace tessel::sql_script {
namespace {

template <typename Action>
std::string MessageOf(Action&& action) {
    try {
        action();
    } catch (const Error& error) {
        return error.what();
    }
    return "no failure";
}

Column Typed(const std::string& type, std::int32_t precision = 0, std::int32_t scale = 0) {
    Column column;
    column.typeName = type;
    column.precision = precision;
    column.scale = scale;
    return column;
}

const Dialect& MySql() { return DialectOf(Server::MySql); }
const Dialect& Postgres() { return DialectOf(Server::PostgreSql); }

TEST(TypeTable, PicksTheFirstTypeThatAdmitsTheColumn) {
    const std::string file = std::string(TESSEL_SHARE) + "/addons/sql_types.txt";
    const TypeTable types(Content(file), file, MySql(), Language::English);
    const struct {
        Column column;
        const char* type;
    } cases[] = {
        {Typed("CHAR"), "CHAR"},
        {Typed("CHAR", 255), "CHAR(255)"},
        {Typed("char", 256), "VARCHAR(256)"},
        {Typed("VARCHAR"), "LONGTEXT"},
        {Typed("VARCHAR", 16384), "LONGTEXT"},
        {Typed("NUMERIC"), "DECIMAL(65,30)"},
        {Typed("NUMERIC", 9), "DECIMAL(9)"},
        {Typed("DECIMAL", 31, 30), "DECIMAL(31,30)"},
        {Typed("DECIMAL", 31, 31), "none"},
        {Typed("FLOAT"), "DOUBLE"},
        {Typed("FLOAT", 24), "FLOAT"},
        {Typed("MONEY"), "none"},
    };
    for (const auto& [column, type] : cases)
        EXPECT_EQ(types.TypeFor(column).value_or("none"), type) << TypeText(column);
    EXPECT_EQ(types.OtherType(), "LONGTEXT");
}

TEST(TypeTable, SaysWhereItIsDamaged) {
    const std::string heading = "# of types\ntype | postgresql | mysql\n";
    const struct {
        std::string text;
        const char* complaint;
    } cases[] = {
        {"", "t, line 0: The first line must be a heading"},
        {"DATE | date\n", "t, line 1: The first line must be a heading"},
        {"type | postgresql\n", "t, line 1: The first line must be a heading"},
        {heading + "DATE | date\n", "t, line 3: The line has 2 cell(s), the heading 3."},
        {heading + "DATE | date | d\n* | t | t\ndate | d | d\n",
         "t, line 5: The type date has a line already."},
        {heading + "DATE | | DATE\n", "t, line 3: \"\" is no type"},
        {heading + "CHAR | char | CHAR({n})\n", "t, line 3: \"CHAR({n})\" is no type"},
        {heading + "CHAR | char {p} | CHAR\n", "t, line 3: \"char {p}\" is no type"},
        {heading + "CHAR | char({p} | CHAR\n", "t, line 3: \"char({p}\" is no type"},
        {heading + "CHAR | char | CHAR to many; TEXT\n", "t, line 3: \"many\" is no limit"},
        {heading + "CHAR | char | CHAR to 5,-1; TEXT\n", "t, line 3: \"5,-1\" is no limit"},
        {heading + "DATE | date | DATE\n", "t, line 3: There is no line \"*\""},
    };
    for (const auto& [text, complaint] : cases)
        EXPECT_TRUE(
            MessageOf([&] { (void)TypeTable(text, "t", MySql(), Language::English); }).starts_with(complaint))
            << text;
}

TEST(Literal, IsAValueOfTheTypeOrNothing) {
    const struct {
        Column column;
        const char* typed;
        const char* postgres;
        const char* mySql;
    } cases[] = {
        {Typed("TINYINT"), "200", "200", "none"},
        {Typed("SMALLINT"), "32768", "none", "none"},
        {Typed("INTEGER"), "-2147483648", "-2147483648", "-2147483648"},
        {Typed("INTEGER"), "3.5", "4", "4"},
        {Typed("INTEGER"), "0x10", "none", "none"},
        {Typed("BIGINT"), "9223372036854775808", "none", "none"},
        {Typed("BIGINT"), "-9223372036854775807", "-9223372036854775807", "-9223372036854775807"},
        {Typed("DECIMAL", 4, 2), "99.99", "99.99", "99.99"},
        {Typed("DECIMAL", 4, 2), "100", "none", "none"},
        {Typed("DECIMAL", 4, 2), "99.994999", "99.994999", "99.994999"},
        {Typed("DECIMAL", 4, 2), "-99.995", "none", "none"},
        {Typed("DECIMAL", 4, 2), "0.9999E2", "0.9999E2", "0.9999E2"},
        {Typed("DECIMAL", 2, 2), "00.999", "none", "none"},
        {Typed("DECIMAL", 18, 2), "9999999999999999.99", "9999999999999999.99", "9999999999999999.99"},
        {Typed("REAL"), "1e", "none", "none"},
        {Typed("DOUBLE"), "1e999", "none", "none"},
        {Typed("BOOLEAN"), "-1", "TRUE", "TRUE"},
        {Typed("DATE"), "NOW()", "CURRENT_DATE", "(CURRENT_DATE)"},
        {Typed("DATE"), "2026-02-29", "none", "none"},
        {Typed("TIME"), "'08:15:30'", "'08:15:30'", "'08:15:30'"},
        {Typed("TIME"), "25:00", "none", "none"},
        {Typed("TIMESTAMP"), "2026-02-28", "'2026-02-28 00:00:00'", "'2026-02-28 00:00:00'"},
        {Typed("CHAR", 3), "本棚が", "'本棚が'", "'本棚が'"},
        {Typed("CHAR", 3), "本棚がある", "none", "none"},
        {Typed("VARCHAR", 9), "'it''s'", "'it''s'", "'it''s'"},
        {Typed("VARCHAR", 9), "'it's'", "'''it''s'''", "'''it''s'''"},
        {Typed("VARCHAR", 9), "\\'", "'\\'''", "'\\\\'''"},
        {Typed("VARCHAR", 9), " a ", "' a '", "' a '"},
        {Typed("LONGVARCHAR"), "a", "'a'", "('a')"},
        {Typed("BINARY", 2), "0xabc", "none", "none"},
        {Typed("BINARY", 2), "\\xABCD", "'\\xabcd'", "x'abcd'"},
        {Typed("BINARY", 2), "0xABCD", "'\\xabcd'", "x'abcd'"},
        {Typed("INTEGER"), "  ", "", ""},
        {Typed("VARCHAR", 9), "Null", "", ""},
    };
    for (const auto& [column, typed, postgres, mySql] : cases) {
        Column given = column;
        given.defaultValue = typed;
        const std::string type = column.typeName == "LONGVARCHAR" ? "LONGTEXT" : column.typeName;
        EXPECT_EQ(DefaultLiteral(Postgres(), given, type).value_or("none"), postgres) << typed;
        EXPECT_EQ(DefaultLiteral(MySql(), given, type).value_or("none"), mySql) << typed;
    }
}

TEST(ServerNames, AreCutWholeCharactersLongAndDiffer) {
    const std::string longName(64, 'x');
    std::string wide;
    for (int i = 0; i < 22; ++i) wide += "表";  // 66 bytes
    Schema schema;
    for (const auto& name : {longName, longName.substr(0, 63), wide, wide + "2"})
        schema.tables.push_back({.name = name,
                                 .comment = "",
                                 .storage = "",
                                 .columns = {},
                                 .indexes = {{.name = wide, .comment = "", .parts = {}}},
                                 .keys = {}});
    const auto names = NameForServer(Postgres(), schema);
    std::set<std::string> all;
    for (const auto& name : names) {
        for (const auto& given : {name.table, name.indexes[0]}) {
            EXPECT_LE(given.size(), 63U);
            EXPECT_GE(given.size(), 60U);
            EXPECT_EQ(CharacterCount(given),
                      LeftCharacters(given, 99).size() - 2 * std::count(given.begin(), given.end(), '\xe8'));
            EXPECT_TRUE(all.insert(given).second) << given;
        }
    }
    EXPECT_EQ(names[1].table, longName.substr(0, 63));
    EXPECT_EQ(NameForServer(MySql(), schema)[3].table, wide + "2");
}

TEST(DependencyOrder, PutsWhatIsReferredToFirst) {
    std::vector<std::vector<std::size_t>> chain(100000);
    for (std::size_t i = 0; i + 1 < chain.size(); ++i) chain[i] = {i + 1};
    const auto order = DependencyOrder(chain);
    for (std::size_t i = 0; i < order.size(); ++i) ASSERT_EQ(order[i], order.size() - 1 - i);
    EXPECT_EQ(DependencyOrder({{1}, {2, 1}, {0}, {}, {3, 0}}), (std::vector<std::size_t>{2, 1, 0, 3, 4}));
}

TEST(Parameters, RefuseWhatTheyDoNotKnow) {
    const auto parameters = ReadParameters(" dialect = SQLite ;file=a=b.sql;;drop=yes", Language::English);
    EXPECT_EQ(parameters.dialect, &DialectOf(Server::Sqlite));
    EXPECT_EQ(parameters.file, "a=b.sql");
    EXPECT_TRUE(parameters.options.dropsTables && parameters.options.hasComments);
    const std::pair<const char*, const char*> cases[] = {
        {"dialect=db2",
         "\"db2\" is no value of the parameter \"dialect\"; it takes postgresql, mysql, sqlite."},
        {"drop=True", "\"True\" is no value of the parameter \"drop\"; it takes yes, no."},
        {"tables", "The parameter \"tables\" is not known here; there are dialect, file, drop and comments."},
    };
    for (const auto& [text, complaint] : cases)
        EXPECT_EQ(MessageOf([&] { (void)ReadParameters(text, Language::English); }), complaint);
}

}  // namespace
}  // namespace tessel::sql_script

#include <gtest/gtest.h>

#include "sql_script/parameters.h"
#include "sql_script/table_order.h"
#include "sql_script/type_table.h"
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
        EXPECT_TRUE(MessageOf([&] {
                        (void)TypeTable(text, "t", DialectOf(Server::MySql), Language::English);
                    }).starts_with(complaint))
            << text;
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

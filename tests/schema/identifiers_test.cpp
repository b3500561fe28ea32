#include "schema/identifiers.h"

#include "support/schema_test.h"

namespace tessel::test {

namespace {

class Identifiers : public SchemaTest {};
using Strings = std::vector<std::string>;

TEST_F(Identifiers, KeepsWhatANameMayHold) {
    struct Case {
        int codePage;
        const char *encoding, *id, *expected;
    };
    const Case cases[] = {{1252, "ASCII", "1abc", "abc"},
                          {1252, "ASCII", "my-table", "my_table"},
                          {1252, "ASCII", "_a", "a"},
                          {1252, "ASCII", "a.b", "ab"},
                          {1252, "ASCII", " #@9", "#@9"},
                          {1252, "ASCII", "Größe", "Gre"},
                          {1252, "ASCII", "$\\a", "$a"},
                          {1252, "CCSID930", "$\\a", "\\a"},
                          {932, "ASCII", "顧客2026", "顧客２０２６"},
                          {932, "ASCII", "顧客a1", "a1"},
                          {932, "ASCII", "ｱｲ1", ""},   // half-width kana take one byte
                          {932, "ASCII", "고객", ""},  // not in this code page
                          {949, "ASCII", "고객주문", "고객주문"},
                          {949, "ASCII", "고객 주문", ""},
                          {949, "ASCII", "고객_x", "x"},
                          {949, "ASCII", "고객1", "고객괦"},  // the code of a digit in 932
                          {949, "ASCII", "고객괦", "고객괦"},
                          {65001, "ASCII", "é1", ""}};
    for (const auto& c : cases) {
        state.codePage = std::make_shared<text::CodePage>(c.codePage);
        frontend->SetEncoding(c.encoding);
        EXPECT_EQ(SQLID(state, c.id), c.expected) << c.codePage << ' ' << c.id;
    }
}

TEST_F(Identifiers, MovesTheCaretWithWhatIsDropped) {
    struct Case {
        const char* id;
        Value caret;
        Value expected;
    };
    const Case cases[] = {
        {"1ab", 3, 2}, {"1ab", 0, 0}, {"a.b.c", 2, 1}, {"é.é", 3, 1}, {"1ab", Missing{}, Missing{}},
    };
    for (const auto& c : cases) {
        Value caret = c.caret;
        (void)SQLID(state, c.id, caret);
        EXPECT_EQ(caret, c.expected) << c.id;
    }
    state.codePage = std::make_shared<text::CodePage>(932);
    Value caret = 3;
    EXPECT_EQ(SQLID(state, "顧客1", caret), "顧客１");
    EXPECT_EQ(caret, Value(3));

    Value inDigits = 4;
    EXPECT_EQ(SQLInteger("12a3", inDigits), "123");
    EXPECT_EQ(inDigits, Value(3));
}

TEST_F(Identifiers, FindsFreeTableNames) {
    const std::string sixty(60, 'L');
    for (const auto& used : Strings{"T", "T1", "t2", sixty}) AddTable(used);
    struct Case {
        std::string name, expected, handedBack;
    };
    const Case cases[] = {
        {"1NEW", "NEW", "1NEW"}, {"T", "T3", "T"},
        {"", "T3", "T"},         {sixty, std::string(47, 'L') + "1", sixty},
        {"!", "", "!"},
    };
    for (const auto& c : cases) {
        std::string name = c.name;
        EXPECT_EQ(Ws().GetFreeTableName(name), c.expected);
        EXPECT_EQ(name, c.handedBack);
    }
}

TEST_F(Identifiers, GivesUpWhereNoNumberMakesAName) {
    AddTable("A");
    std::string name = std::string(47, '.') + "A";
    EXPECT_EQ(Ws().GetFreeTableName(name), "");
    Db().Execute("insert into Tables(TableName) values('')");
    EXPECT_EQ(Ws().GetFreeTableName(name), "");
}

}  // namespace

}  // namespace tessel::test

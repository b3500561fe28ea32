#include "support/schema_test.h"

namespace tessel::test {

namespace {

class Members : public SchemaTest {
  protected:
    Value Call(std::string_view member, Arguments arguments = {}, CallKind kind = CallKind::Method) {
        last = std::move(arguments);
        return Ws().Call(member, kind, last);
    }
    ErrorKind KindOf(std::string_view member, Arguments arguments, CallKind kind = CallKind::Method) {
        try {
            Call(member, std::move(arguments), kind);
        } catch (const Error& error) {
            return error.Kind();
        }
        return ErrorKind::Io;  // none of those expected here
    }
    Arguments last;
};

TEST_F(Members, HandBackWhatTheyChange) {
    Call("ReturnCode", {"7"}, CallKind::Put);
    EXPECT_EQ(Ws().ReturnCode(), 7);
    EXPECT_EQ(Call("TableAdd", {"A", Null{}, Null{}, "2026-01-31T10:00:00", Null{}, Null{}}), Value(true));
    EXPECT_EQ(last[1], Value(1));
    EXPECT_EQ(last[3], Value("2026-01-31T10:00:00"));  // goes in only
    EXPECT_EQ(Call("getfreetablename", {""}), Value("T"));
    EXPECT_EQ(last[0], Value("T"));
    EXPECT_EQ(Call("SQLID", {"1ab", 3}), Value("ab"));
    EXPECT_EQ(last[1], Value(2));
    EXPECT_EQ(Call("SQLID", {"1ab"}), Value("ab"));
    EXPECT_TRUE(last.at(1).IsMissing());
    EXPECT_EQ(Call("TableUpdate", {"1", Missing{}, Missing{}, "note"}), Value(true));
    EXPECT_EQ(Rows("select Comments from Tables"), std::vector<std::string>{"note"});
}

TEST_F(Members, RefuseWhatDoesNotFit) {
    EXPECT_EQ(KindOf("TableFly", {}), ErrorKind::Member);
    EXPECT_EQ(KindOf("ToolID", {"X"}, CallKind::Put), ErrorKind::Member);
    EXPECT_EQ(KindOf("TableDrop", {}), ErrorKind::Conversion);
    EXPECT_EQ(KindOf("TableDrop", {1, 2}), ErrorKind::Argument);
    EXPECT_EQ(KindOf("TableDrop", {1e10}), ErrorKind::Conversion);
    EXPECT_EQ(KindOf("ReturnCode", {40000}, CallKind::Put), ErrorKind::Conversion);
    EXPECT_EQ(KindOf("LoadTableCombo", {Ws().objComposite()}), ErrorKind::Conversion);
}

}  // namespace

}  // namespace tessel::test

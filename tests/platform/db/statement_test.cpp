#include "platform/db/statement.h"

#include "platform/db/engine.h"
#include "platform/db/temporary_database.h"

namespace tessel::db {
namespace {

class StatementTest : public TemporaryDatabase {
  protected:
    Connection connection_ = Connect(path_.string(), std::chrono::milliseconds(20));
    StatementCache cache_{connection_.get()};
};

TEST_F(StatementTest, OneInUseIsNotHandedOutTwice) {
    const std::string sql = "select TypeID from SQLTypes where TypeID>? order by TypeID";
    {
        Statement outer(cache_, sql, sql);
        outer.Bind(1, 0);
        ASSERT_TRUE(outer.Step());
        Statement inner(cache_, sql, sql);
        inner.Bind(1, 10);
        ASSERT_TRUE(inner.Step());
        EXPECT_EQ(inner.Field(0), Value(11));
        ASSERT_TRUE(outer.Step());
        EXPECT_EQ(outer.Field(0), Value(2));
    }
    EXPECT_EQ(cache_.Count(), 1U);
    Statement again(cache_, sql, sql);
    EXPECT_EQ(cache_.Count(), 0U);
    EXPECT_FALSE(again.Step()) << "a value of the last use is still bound";
}

TEST_F(StatementTest, KeepsTheStatementsUsedLast) {
    for (int i = 0; i < 70; ++i) {
        const std::string often = "select 'often'";
        Statement kept(cache_, often, often);
        const std::string sql = "select " + std::to_string(i);
        Statement statement(cache_, sql, sql);
    }
    EXPECT_EQ(cache_.Count(), 64U);
    Statement kept(cache_, "select 'often'", "");
    EXPECT_EQ(cache_.Count(), 63U);
}

}  // namespace
}  // namespace tessel::db

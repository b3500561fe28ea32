#include <signal.h>
#include <sys/resource.h>

#include <optional>

#include "platform/db/interruptible.h"
#include "platform/db/temporary_database.h"

namespace tessel::db {
namespace {

using TransactionTest = TemporaryDatabase;

void Insert(Database& database, const std::string& name) {
    database.Execute("insert into ProjectSettings(PropName,PropValue) values('" + name + "','')");
}

TEST_F(TransactionTest, KeepsOrUndoesEachLevel) {
    struct Case {
        bool outer, inner;  // whether it is committed
        int rows;
    };
    for (const Case& test :
         {Case{true, true, 3}, Case{true, false, 2}, Case{false, true, 0}, Case{false, false, 0}}) {
        const auto database = Open();
        database->Execute("delete from ProjectSettings");
        {
            Transaction outer(*database);
            Insert(*database, "a");
            const auto changes = database->ChangeCount();
            {
                Transaction inner(*database);
                Insert(*database, "b");
                EXPECT_GT(database->ChangeCount(), changes);
                if (test.inner) inner.Commit();
            }
            EXPECT_EQ(database->ChangeCount() != changes, test.inner);
            Insert(*database, "c");
            if (test.outer) outer.Commit();
        }
        EXPECT_EQ(Count(*Open(), "ProjectSettings"), test.rows);
    }
}

TEST_F(TransactionTest, BusyFileIsRefusedAndCanBeTriedAgain) {
    const auto first = Open();
    const auto second = Open();
    std::optional<Transaction> writing(std::in_place, *first);
    Insert(*first, "a");
    EXPECT_EQ(Count(*second, "ProjectSettings"), 0);
    EXPECT_EQ(KindThrown([&] { Transaction refused(*second); }), ErrorKind::Busy);
    EXPECT_EQ(KindThrown([&] { Insert(*second, "b"); }), ErrorKind::Busy);
    writing->Commit();
    writing.reset();
    Transaction again(*second);
    Insert(*second, "b");
    again.Commit();
    EXPECT_EQ(Count(*first, "ProjectSettings"), 2);
}

// Lets no file of this process grow beyond `bytes`, as on a full device.
class FullDevice {
  public:
    explicit FullDevice(rlim_t bytes) : signal_(signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &limit_);
        const rlimit small{bytes, limit_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~FullDevice() {
        setrlimit(RLIMIT_FSIZE, &limit_);
        signal(SIGXFSZ, signal_);
    }
    FullDevice(const FullDevice&) = delete;
    FullDevice& operator=(const FullDevice&) = delete;

  private:
    rlimit limit_{};
    sighandler_t signal_;
};

TEST_F(TransactionTest, LostInTheMiddleKeepsNothing) {
    const auto database = Open();
    {
        Transaction outer(*database);
        Insert(*database, "before");
        {
            const FullDevice full(500'000);
            Transaction inner(*database);
            EXPECT_THROW(Insert(*database, std::string(5'000'000, 'x')), DatabaseError);
        }
        try {
            Insert(*database, "after");
            ADD_FAILURE() << "it would be kept alone";
        } catch (const DatabaseError& error) {
            EXPECT_NE(std::string(error.what()).find("after an earlier failure ("), std::string::npos)
                << error.what();
        }
        EXPECT_THROW(Transaction{*database}, DatabaseError);
        EXPECT_THROW(outer.Commit(), DatabaseError);
        EXPECT_EQ(Count(*database, "ProjectSettings"), 0);
    }
    Transaction next(*database);
    Insert(*database, "next");
    next.Commit();
    EXPECT_EQ(Count(*Open(), "ProjectSettings"), 1);
}

TEST_F(TransactionTest, NothingComesIntoTheMiddleOfAStatement) {
    const auto database = Open();
    for (int i = 0; i < 60; ++i)
        database->Execute("insert into Errors(TblID,KeyID,ColumnID,Message) values(0,0,0,'m')");
    int refused = 0;
    const auto step = [&](const std::function<void()>& action) {
        try {
            action();
        } catch (const DatabaseError& error) {
            if (error.Kind() == ErrorKind::Busy) ++refused;
        }
    };
    int asked = 0;
    const Interruptible interruptible(*database, [&] {
        ++asked;
        step([&] { Insert(*database, "in between"); });
        step([&] { (void)Count(*database, "Errors"); });
        step([&] { const Transaction transaction(*database); });
        step([&] { (void)database->Copy(); });
        step([&] { (void)database->Snapshot(); });
        return true;
    });
    Transaction transaction(*database);
    Insert(*database, "before");
    auto row = database->Select("select count(*) as N from Errors a, Errors b, Errors c");
    ASSERT_TRUE(row.Next());
    EXPECT_EQ(row.Integer("N"), 60 * 60 * 60);
    transaction.Commit();
    EXPECT_GT(asked, 0);
    EXPECT_EQ(refused, 5 * asked);
    EXPECT_EQ(Count(*Open(), "ProjectSettings"), 1);
}

TEST_F(TransactionTest, InterruptedStatementsEndAndLoseIt) {
    const std::string endless = " from Errors a, Errors b, Errors c, Errors d where d.Message >= a.Message";
    const auto database = Open();
    for (int i = 0; i < 200; ++i)
        database->Execute("insert into Errors(TblID,KeyID,ColumnID,Message) values(0,0,0,'m')");
    int asked = 0;
    const Interruptible interruptible(*database, [&] { return ++asked % 3 != 0; });
    Transaction transaction(*database);
    Insert(*database, "before");
    EXPECT_THROW((void)database->Select("select count(*) as N" + endless), DatabaseError);
    EXPECT_EQ(asked, 3);
    EXPECT_FALSE(transaction.IsLost());
    EXPECT_EQ(Count(*database, "ProjectSettings"), 1);
    EXPECT_THROW(database->Execute(
                     "insert into ProjectSettings(PropName,PropValue) select max(d.Message), ''" + endless),
                 DatabaseError);
    EXPECT_TRUE(transaction.IsLost());
    EXPECT_EQ(Count(*Open(), "ProjectSettings"), 0);
}

TEST_F(TransactionTest, CommitThatFailsUndoesEverything) {
    const auto database = Open();
    Transaction transaction(*database);
    Insert(*database, std::string(1'000'000, 'x'));
    {
        const FullDevice full(500'000);
        EXPECT_THROW(transaction.Commit(), DatabaseError);
    }
    EXPECT_EQ(Count(*database, "ProjectSettings"), 0);
    Insert(*database, "alone");
    EXPECT_EQ(Count(*Open(), "ProjectSettings"), 1);
}

}  // namespace
}  // namespace tessel::db

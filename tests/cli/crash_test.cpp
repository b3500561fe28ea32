#include <chrono>
#include <random>
#include <sstream>
#include <thread>

#include "lines/json_values.h"
#include "runner/serve_calls.h"
#include "support/child_program.h"
#include "support/database_dump.h"
#include "support/schema_test.h"

namespace tessel::test {

namespace {

constexpr int operations = 6'000;
constexpr int kills = 48;

// Random calls of every member that writes. Their identifiers are guesses: some calls are refused, and the
// same ones each time.
class RandomCalls {
  public:
    std::string Next() {
        using Make = std::string (RandomCalls::*)();
        static constexpr Make makers[] = {
            &RandomCalls::AddTable,   &RandomCalls::AddTable,     &RandomCalls::AddColumn,
            &RandomCalls::AddColumn,  &RandomCalls::AddColumn,    &RandomCalls::AddIndex,
            &RandomCalls::AddKey,     &RandomCalls::UpdateColumn, &RandomCalls::RenameTable,
            &RandomCalls::CopyColumn, &RandomCalls::MakePrimary,  &RandomCalls::Drop,
            &RandomCalls::DropTable,
        };
        return (this->*makers[random_() % std::size(makers)])();
    }

  private:
    static constexpr const char* date = R"({"date":"2026-01-31T10:00:00"})";

    std::string Id(int most) { return std::to_string(1 + random_() % static_cast<unsigned>(most)); }
    std::string Table() { return Id(tables_); }
    std::string Name() { return "\"N" + std::to_string(++names_) + "\""; }
    static std::string Line(const std::string& member, const std::string& arguments) {
        return R"({"member":")" + member + R"(","args":[)" + arguments + "]}";
    }

    std::string AddTable() {
        ++tables_;
        return Line("TableAdd", Name() + ",0,null," + date + ",null,null");
    }
    std::string AddColumn() {
        ++columns_;
        return Line("ColumnAdd", Table() + ",\"C\",4,0,0,true,\"日本\",null," + date + ",null,null,-1,0");
    }
    std::string AddIndex() { return Line("IndexAdd", Table() + "," + Name() + ",0"); }
    std::string AddKey() { return Line("ForeignAdd", Table() + "," + Table() + "," + Name() + ",0"); }
    std::string UpdateColumn() { return Line("ColumnUpdate", Id(columns_) + "," + Name() + ",3,10,2"); }
    std::string RenameTable() {
        return Line("TableUpdate", Table() + "," + Name() + ",\"\",\"it's | here\"");
    }
    std::string CopyColumn() {
        ++columns_;
        return Line("ColumnCopy", Id(columns_) + "," + Table() + ",0");
    }
    std::string MakePrimary() { return Line("PrimaryAdd", Table()); }
    std::string Drop() {
        static constexpr const char* members[] = {"ColumnDrop", "IndexDrop", "ForeignDrop"};
        return Line(members[random_() % std::size(members)], Id(columns_ / 4 + 1));
    }
    std::string DropTable() { return Line("TableDrop", Id(tables_ / 2 + 1)); }

    std::mt19937 random_{20260131};
    int names_ = 0;
    int tables_ = 1;
    int columns_ = 1;
};

// The schema of the fixture runs each call that the killed program answered, and so says what must have been
// kept.
class Killing : public SchemaTest {
  protected:
    Killing() { state.questions = {std::shared_ptr<void>(), &answering_}; }

    std::string Expect(const std::string& call) {
        std::istringstream input(call);
        std::ostringstream output;
        ServeCalls({state, answering_}, input, output);
        return output.str();
    }

  private:
    QueuedQuestions answering_;
};

TEST_F(Killing, LosesNothingThatWasAnswered) {
    TemporaryFolder killed;
    const std::string workspace = killed / "works";
    const std::string file = workspace + "/Projects/Works/DBSCHEMA/Works.mdb";
    ASSERT_EQ(ChildProgram({TESSEL_PROGRAM, "new", workspace, "--project", "Works"}).Wait(), 0);

    RandomCalls calls;
    std::mt19937 moments(7);
    int done = 0;
    for (int round = 1; round <= kills; ++round) {
        ChildProgram program({TESSEL_PROGRAM, "--workspace", workspace, "call"});
        for (; done < round * operations / kills - 1; ++done) {
            const std::string call = calls.Next();
            ASSERT_TRUE(program.WriteLine(call));
            ASSERT_EQ(program.ReadLine() + "\n", Expect(call)) << call;
        }
        const std::string last = calls.Next();
        ASSERT_TRUE(program.WriteLine(last));
        ++done;
        std::this_thread::sleep_for(std::chrono::microseconds(moments() % 600));
        program.Kill();

        const std::string survived = DumpOf(file);
        const bool answered = !program.ReadLine().empty();
        if (answered || survived != DumpOf(state.databaseFilename)) Expect(last);
        ASSERT_EQ(survived, DumpOf(state.databaseFilename)) << "round " << round << ", " << last;
    }
    EXPECT_EQ(done, operations);
    EXPECT_GT(DumpOf(file).size(), 10'000U);  // the calls were not all refused
}

}  // namespace

}  // namespace tessel::test

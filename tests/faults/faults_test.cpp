#include <algorithm>
#include <filesystem>
#include <ranges>

#include "engine/tessel_engine.h"
#include "faults/actions.h"
#include "support/database_dump.h"
#include "support/unsafe_disk.h"

namespace tessel::test {

namespace {

using Fault = UnsafeDisk::Fault;
using Operation = UnsafeDisk::Operation;

// The schema of RulesTest on a disk that fails.
class Faults : public RulesTest, public testing::WithParamInterface<std::size_t> {
  protected:
    Faults() {
        state.database.reset();
        state.programFolder = folder / "programs";
        stored_ = Content(state.databaseFilename);
        Write(folder / "DBSchema.mdb", stored_);
        for (const char* name : {"Child", "Parent"})
            frontend->repository->Add("TABLE", name)->attributes["Modified"] = "2026-01-31T10:00:00";
        WriteTools();
    }

    ~Faults() override { Close(); }

    // What a tool of the shell's does before it ends well or badly.
    void WriteTools() {
        const std::string work =
            "#!/bin/sh\nprintf '%s\\n' "
            "'{\"member\":\"TableAdd\",\"args\":[\"BOOK\",0,null,{\"date\":\"2026-01-31\"},null,null]}'\n"
            "read -r answer\n";
        std::filesystem::create_directory(state.programFolder);
        Write(state.programFolder + "/tool", work + "case $answer in *true*) exit 0;; esac\nexit 3\n");
        Write(state.programFolder + "/fails", work + "exit 3\n");
        for (const char* tool : {"/tool", "/fails"})
            std::filesystem::permissions(state.programFolder + tool, std::filesystem::perms::owner_all);
        Write(state.programFolder + "/components.xml",
              "<COMPONENTS><CLASS PROGID='Tool' PROGRAM='tool'/><CLASS PROGID='Fails' PROGRAM='fails'/>"
              "</COMPONENTS>");
    }

    // The action up to where the user confirms it, on a fresh file.
    Step Prepare(const Action& action, std::chrono::milliseconds busyWait = std::chrono::seconds(5)) {
        Close();
        disk_ = std::make_unique<UnsafeDisk>();
        std::filesystem::remove(state.databaseFilename + "-journal");
        Write(state.databaseFilename, stored_);
        state.database = db::Database::Open(state.databaseFilename, busyWait);
        disk_->BeUnused();
        Step step = action.prepare(around_);
        TakeNotes();
        return step;
    }
    void Close() {
        state.database.reset();
        disk_.reset();
    }

    bool Do(const Action& action, const Step& step) {
        questions->Answers(action.answers);
        bool done = false;
        try {
            done = step();
        } catch (const Error& error) {  // the program shows it
            questions->Show({.text = error.what()});
        }
        questions->Answers({});
        return done;
    }

    // Learns what the action writes, and how.
    std::vector<Operation> Learn(const Action& action) {
        const Step step = Prepare(action);
        before_ = DumpOf(state.databaseFilename);
        disk_->FailNever();
        EXPECT_TRUE(Do(action, step));
        auto operations = disk_->Done();
        (void)questions->TakeAsked();
        Close();
        after_ = DumpOf(state.databaseFilename);
        EXPECT_NE(before_, after_);
        return operations;
    }

    void CutPower(const Action& action, std::size_t number) {
        const Step step = Prepare(action);
        disk_->FailAt(number, Fault::Cut, true);
        const bool done = Do(action, step);
        (void)questions->TakeAsked();
        state.database.reset();
        const auto seed = static_cast<unsigned>(number);
        for (const auto survival : {UnsafeDisk::Survival::Nothing, UnsafeDisk::Survival::SomeSectors,
                                    UnsafeDisk::Survival::Everything}) {
            disk_->LosePower(survival, seed);
            EXPECT_NO_THROW((void)db::Database::Open(state.databaseFilename));
            ExpectWholeOrNothing(done);
        }
    }

    std::string ExpectWholeOrNothing(bool done, bool mayBePart = false) {
        const std::string found = DumpOf(state.databaseFilename);
        EXPECT_TRUE(found == after_ || (!done && (found == before_ || mayBePart)))
            << "reported: " << done << "\n"
            << found;
        return found;
    }

    void Fail(const Action& action, std::size_t number, Fault fault, bool lasts) {
        const Step step = Prepare(action);
        disk_->FailAt(number, fault, lasts);
        const bool done = Do(action, step);
        const auto operations = disk_->Done();
        disk_->FailNever();
        const auto asked = questions->TakeAsked();
        EXPECT_TRUE(done || !action.tells || IsTold(asked)) << "nothing was said";
        // Only while the engine goes on can some parts fail and others not.
        const bool goesOn = action.inParts && number < operations.size() &&
                            (operations[number] == Operation::Read || operations[number] == Operation::Open);
        if (ExpectWholeOrNothing(done, goesOn) == before_) {
            ExpectUndrawn();
            EXPECT_TRUE(Do(action, step)) << "again";
            EXPECT_NE(DumpOf(state.databaseFilename), before_);
        }
        (void)questions->TakeAsked();
    }

    static bool IsTold(const std::vector<AskedQuestion>& asked) {
        return std::ranges::any_of(asked, [](const AskedQuestion& question) {
            return question.buttons == host::Buttons::OK && question.answer == QueuedAnswer(host::Answer::OK);
        });
    }

    // The action fails while the file is `hindered`, is said, and changes nothing; `free` lets it be done.
    void ExpectHindered(const Action& action, const Step& step, const std::function<void()>& free) {
        EXPECT_FALSE(Do(action, step)) << action.name;
        EXPECT_TRUE(!action.tells || IsTold(questions->TakeAsked())) << action.name << ": nothing was said";
        ExpectUndrawn();
        free();
        EXPECT_EQ(DumpOf(state.databaseFilename), before_) << action.name;
        EXPECT_TRUE(Do(action, step)) << action.name << " again";
        (void)questions->TakeAsked();
    }

    // What the window was told of changes that are not there is read anew.
    void ExpectUndrawn() {
        const auto notes = TakeNotes();
        const auto refreshed = std::ranges::find(notes | std::views::reverse, "refresh");
        for (const auto& note : std::ranges::subrange(refreshed.base(), notes.end()))
            for (const char* change : {"draw", "remove", "connect", "caption", "disconnect"})
                EXPECT_FALSE(note.starts_with(change)) << note;
    }

    const CommaLocale locale_;
    Surroundings around_{state, Ws(), locale_, date, folder.Path()};
    std::unique_ptr<UnsafeDisk> disk_;
    std::string stored_;
    std::string before_;
    std::string after_;
};

// How many of an action's disk operations are tried; all of them where the environment asks for it.
std::size_t StrideOf(const Action& action, std::size_t operations) {
    constexpr std::size_t most = 14;
    if (std::getenv("TESSEL_EVERY_FAULT")) return 1;
    return std::max<std::size_t>(1, operations / (action.isSlow ? most / 4 : most));
}

TEST_P(Faults, LeaveAnActionWholeOrUndone) {
    const Action& action = Actions()[GetParam()];
    const auto operations = Learn(action);
    const auto number = [&](Operation kind) { return std::ranges::count(operations, kind); };
    EXPECT_GE(number(Operation::Write), 4) << "not written to the disk";
    EXPECT_GE(number(Operation::Sync), 2);
    const std::size_t stride = StrideOf(action, operations.size());
    for (std::size_t at = GetParam() % stride; at < operations.size() + stride; at += stride) {
        const std::size_t tried = std::min(at, operations.size());
        const auto kind = tried < operations.size() ? operations[tried] : Operation::Sync;
        SCOPED_TRACE(std::string(action.name) + ", operation " + std::to_string(tried) + " of " +
                     std::to_string(operations.size()) + ", of the kind " + std::to_string(int(kind)));
        Fail(action, tried, Fault::Error, false);
        if (kind == Operation::Read) continue;
        CutPower(action, tried);
        Fail(action, tried, kind == Operation::Write ? Fault::Full : Fault::Error, true);
        if (HasFailure()) return;
    }
}

TEST_P(Faults, LeaveAnActionToBeDoneAgain) {
    const Action& action = Actions()[GetParam()];
    const std::string& file = state.databaseFilename;
    const Step busy = Prepare(action, std::chrono::milliseconds(1));
    before_ = DumpOf(file);
    {
        const auto other = db::Database::Open(file);
        std::optional<db::Transaction> writing(*other);
        ExpectHindered(action, busy, [&] { writing.reset(); });
    }
    const Step gone = Prepare(action);
    state.Database().Execute("update Tables set StorageOption = 'FAST'");  // leaves a journal beside the file
    before_ = DumpOf(file);
    std::filesystem::rename(file, file + ".moved");
    ExpectHindered(action, gone, [&] { std::filesystem::rename(file + ".moved", file); });
    const Step replaced = Prepare(action);
    before_ = DumpOf(file);
    std::filesystem::rename(file, file + ".moved");
    Write(file, stored_);
    ExpectHindered(action, replaced, [&] { std::filesystem::rename(file + ".moved", file); });
}

TEST_F(Faults, LetAFirstStartBeDoneAgain) {
    const std::string schemaFolder = folder / "Projects/Demo/DBSCHEMA";
    std::filesystem::create_directories(folder / "Projects/Demo");
    const auto start = [&] { return TesselEngine(state).Run(frontend, Missing{}, Missing{}); };
    bool started = false;
    std::size_t at = 0;
    for (; !started; ++at) {
        SCOPED_TRACE(at);
        std::filesystem::remove_all(schemaFolder);
        disk_ = std::make_unique<UnsafeDisk>();
        disk_->FailAt(at, Fault::Cut, true);
        const Action plain{.name = "start", .prepare = {}};
        started = Do(plain, [&] { return start() == 0; });
        EXPECT_TRUE(started || IsTold(questions->TakeAsked()));
        state.window.reset();
        state.database.reset();
        disk_->LosePower(UnsafeDisk::Survival::SomeSectors, static_cast<unsigned>(at));
        disk_.reset();
        ASSERT_EQ(start(), 0);
        state.database.reset();
        EXPECT_EQ(DumpOf(schemaFolder + "/Demo.mdb"), DumpOf(std::string(TESSEL_SHARE) + "/DBSchema.mdb"));
    }
    EXPECT_GT(at, 5U);
}

INSTANTIATE_TEST_SUITE_P(EveryAction, Faults, testing::Range<std::size_t>(0, Actions().size()),
                         [](const auto& action) {
                             std::string name = Actions()[action.param].name;
                             std::ranges::replace_if(
                                 name, [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
                             return name;
                         });

}  // namespace

}  // namespace tessel::test

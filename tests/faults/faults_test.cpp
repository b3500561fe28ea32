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
        Write(state.programFolder + "/tool", work);
        Write(state.programFolder + "/fails", work + "exit 3\n");
        for (const char* tool : {"/tool", "/fails"})
            std::filesystem::permissions(state.programFolder + tool, std::filesystem::perms::owner_all);
        Write(state.programFolder + "/components.xml",
              "<COMPONENTS><CLASS PROGID='Tool' PROGRAM='tool'/><CLASS PROGID='Fails' PROGRAM='fails'/>"
              "</COMPONENTS>");
    }

    // The action up to where the user confirms it, on a fresh file.
    Step Prepare(const Action& action) {
        Close();
        disk_ = std::make_unique<UnsafeDisk>();
        std::filesystem::remove(state.databaseFilename + "-journal");
        Write(state.databaseFilename, stored_);
        state.database = db::Database::Open(state.databaseFilename);
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
        const bool isTold = std::ranges::any_of(asked, [](const AskedQuestion& question) {
            return question.buttons == host::Buttons::OK && question.answer == QueuedAnswer(host::Answer::OK);
        });
        EXPECT_TRUE(done || !action.tells || isTold) << "nothing was said";
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

    // What the window was told of changes that are not there is read anew.
    void ExpectUndrawn() {
        const auto notes = TakeNotes();
        const auto refreshed = std::ranges::find(notes | std::views::reverse, "refresh");
        for (const auto& note : std::ranges::subrange(refreshed.base(), notes.end()))
            for (const char* change : {"draw", "remove", "connect", "caption", "disconnect"})
                EXPECT_FALSE(note.starts_with(change)) << note;
    }

    CommaLocale locale_;
    Surroundings around_{state, Ws(), locale_, date, folder.Path()};
    std::unique_ptr<UnsafeDisk> disk_;
    std::string stored_;
    std::string before_;
    std::string after_;
};

TEST_P(Faults, LeaveAnActionWholeOrUndone) {
    const Action& action = Actions()[GetParam()];
    const auto operations = Learn(action);
    const auto number = [&](Operation kind) { return std::ranges::count(operations, kind); };
    EXPECT_GE(number(Operation::Write), 4) << "not written to the disk";
    EXPECT_GE(number(Operation::Sync), 2);
    for (std::size_t at = 0; at <= operations.size(); at += action.stride) {
        const bool isEnd = at + action.stride > operations.size();
        const Operation kind = isEnd ? Operation::Sync : operations[at];
        SCOPED_TRACE(std::string(action.name) + ", " + std::to_string(at) + " of " +
                     std::to_string(operations.size()) + ", kind " + std::to_string(int(kind)));
        Fail(action, at, Fault::Error, false);
        if (kind == Operation::Read) continue;
        CutPower(action, at);
        Fail(action, at, Fault::Error, true);
        if (kind == Operation::Write) Fail(action, at, Fault::Full, true);
        if (HasFailure()) return;
    }
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

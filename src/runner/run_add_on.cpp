#include "runner/run_add_on.h"

#include <utility>

#include "platform/text/utf8.h"
#include "runner/component_list.h"
#include "runner/forwarded_questions.h"
#include "runner/talk_with_tool.h"
#include "runner/trusted_path.h"
#include "schema/activity.h"
#include "schema/sql_text.h"
#include "verify/db_check.h"

namespace tessel {

namespace {

constexpr int failedResultText = 2090;
constexpr int failedText = 2720;
constexpr int findingsText = 2721;
constexpr int activityText = 2722;
constexpr int keepText = 2723;

constexpr std::int32_t noTable = -1;

// A caption as a text says it: without the mark of a mnemonic, or the letter "(&N)" that stands for one.
std::string WithoutMnemonic(std::string_view caption) {
    std::string plain;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        const auto rest = caption.substr(i);
        if (rest.size() > 3 && rest.starts_with("(&") && rest[2] != '&' && rest[3] == ')') {
            i += 3;
            continue;
        }
        if (rest[0] == '&') ++i;  // what follows stands for itself
        if (i < caption.size()) plain += caption[i];
    }
    return plain;
}

std::vector<std::string> CommandOf(const ComponentState& state, const AddOnEntry& entry) {
    const auto list = ComponentList::Load(state.programFolder);
    const RegisteredClass& found = list.ClassOf(entry.progID);
    RefuseUntrusted(found.file);
    if (found.kind == RegisteredClass::Kind::Program) return {found.file, entry.param};
    return {state.programFolder + "/tessel-addon-host", found.file, found.progID, entry.param};
}

// While it lives, another one stands in this place.
template <typename T>
class Instead {
  public:
    Instead(T& place, T other) : place_(place), before_(std::exchange(place, std::move(other))) {}
    ~Instead() { place_ = before_; }
    Instead(const Instead&) = delete;
    Instead& operator=(const Instead&) = delete;

  private:
    T& place_;
    T before_;
};

// Adds the changes in its lifetime to the sum.
class ChangesAdded {
  public:
    ChangesAdded(const db::Database& database, std::int64_t& sum)
        : database_(database), sum_(sum), before_(database.ChangeCount()) {}
    ~ChangesAdded() { sum_ += database_.ChangeCount() - before_; }
    ChangesAdded(const ChangesAdded&) = delete;
    ChangesAdded& operator=(const ChangesAdded&) = delete;

  private:
    const db::Database& database_;
    std::int64_t& sum_;
    std::int64_t before_;
};

std::string Shortened(const std::string& reason) {
    constexpr std::size_t mostShown = 2000;  // characters
    const auto shown = text::Left(reason, mostShown);
    return std::string(shown) + (shown.size() < reason.size() ? "…" : "");
}

class AddOnRun {
  public:
    AddOnRun(ComponentState& state, const AddOnEntry& entry, const RunSettings& settings)
        : state_(state),
          entry_(entry),
          settings_(settings),
          caption_(WithoutMnemonic(entry.caption)),
          database_(state.database),
          window_(state.window) {}

    RunEnd Do(Value& result) {
        RunEnd end = RunEnd::Failed;
        TellingFailure([&] {
            const std::string reference = window_->CVRL();
            TellingFailure([&] { end = Attempt(result); });
            LeaveWindow(end, reference);
        });
        return end;
    }

  private:
    // Steps that may throw anything; the user is told what.
    template <typename Steps>
    void TellingFailure(Steps&& steps) {
        try {
            steps();
        } catch (const std::exception& error) {
            TellFailure(error.what());
        }
    }

    RunEnd Attempt(Value& result) {
        if (entry_.verify && !IsFreeOfErrors()) return RunEnd::NotVerified;
        return RunTool(result) ? RunEnd::Succeeded : RunEnd::Failed;
    }

    bool IsFreeOfErrors() {
        WorkspaceOf(state_)->Verify();
        if (DBCheck(state_).StoredErrors().empty()) return true;
        state_.questions->Show({.text = state_.texts->Format(findingsText, {caption_}),
                                .title = state_.Title(),
                                .icon = host::Icon::Critical});
        return false;
    }

    bool RunTool(Value& result) {
        const auto command = CommandOf(state_, entry_);
        HandOver();
        db::Transaction transaction(*database_);
        const auto changesBefore = database_->ChangeCount();
        hasChanged_ = true;  // until it is known better: also when it fails in the middle of a change
        ToolEnd end = Talk(command);
        const auto changes = database_->ChangeCount() - changesBefore;
        hasChanged_ = changes != 0;
        const bool hasSucceeded = end.kind == ToolEnd::Kind::Succeeded;
        if (!hasSucceeded) TellFailure(end.reason);
        const bool isLeft = changes != changesOfVerify_ && !transaction.IsLost();
        if (!hasSucceeded && !(isLeft && KeepsChanges(end))) return false;
        transaction.Commit();
        hasChanged_ = false;
        if (!hasSucceeded) return false;
        result = std::move(end.result);
        Note(state_, activityText, {caption_}, Outcome::Done);
        return true;
    }

    // Where the tool finds who it is, and leaves what it has to say.
    void HandOver() {
        VNTWS& workspace = *WorkspaceOf(state_);
        workspace.SetMethodID(entry_.name);
        workspace.SetMethodName(entry_.caption);
        workspace.SetReturnCode(0);
        workspace.SetSelectedTabID(noTable);
        state_.Frontend().UseErrorsFile(state_.databaseFilename + ".errors");
    }

    ToolEnd Talk(const std::vector<std::string>& command) {
        const auto questions = std::make_shared<ForwardedQuestions>(state_.questions);
        const Instead<std::shared_ptr<host::Questions>> asking(state_.questions, questions);
        const Instead verifying(state_.verifySchema, CountingChanges(state_.verifySchema));
        CallServer server(state_, *questions);
        ToolProcess tool(command, settings_.folder);
        return TalkWithTool(tool, server, *database_, settings_.watch, *state_.texts);
    }

    // What it writes are no changes of the tool's.
    std::function<void(ComponentState&)> CountingChanges(std::function<void(ComponentState&)> verify) {
        if (!verify) return verify;
        return [this, verify = std::move(verify)](ComponentState& state) {
            const ChangesAdded added(*database_, changesOfVerify_);
            verify(state);
        };
    }

    bool KeepsChanges(const ToolEnd& end) {
        if (settings_.onFailure == OnFailure::AskUser)
            return state_.questions->Show({.text = state_.texts->Format(keepText, {caption_}),
                                           .title = state_.Title(),
                                           .icon = host::Icon::Warning,
                                           .buttons = host::Buttons::YesNo}) == host::Answer::Yes;
        return settings_.onFailure == OnFailure::Keep && end.kind != ToolEnd::Kind::Stopped;
    }

    void TellFailure(const std::string& wholeReason) {
        const std::string reason = Shortened(wholeReason);
        Note(state_, activityText, {caption_}, state_.texts->Format(failedResultText, {FlattenText(reason)}));
        state_.questions->Show(
            {.text = state_.texts->Format(failedText, {caption_ + "\r", entry_.progID + "\r", entry_.param}),
             .title = state_.Title(),
             .icon = host::Icon::Critical,
             .detail = reason});
    }

    void LeaveWindow(RunEnd end, const std::string& reference) {
        window_->FinishProgress();
        if (hasChanged_) {  // and the change was dropped
            window_->RefreshBrowser();
            DBCheck(state_).LoadErrors();
        }
        const std::int32_t selected = WorkspaceOf(state_)->SelectedTabID();
        if (end == RunEnd::Succeeded && selected != noTable)
            window_->SelectTable("t" + std::to_string(selected));
        window_->SetCVRL(reference);
    }

    ComponentState& state_;
    const AddOnEntry& entry_;
    const RunSettings& settings_;
    std::string caption_;
    // Held, so that they outlast a window that closes meanwhile.
    std::shared_ptr<db::Database> database_;
    std::shared_ptr<ToolWindow> window_;
    bool hasChanged_ = false;  // the database, and the change is not kept
    std::int64_t changesOfVerify_ = 0;
};

}  // namespace

RunEnd RunAddOn(ComponentState& state, const AddOnEntry& entry, const RunSettings& settings, Value& result) {
    return AddOnRun(state, entry, settings).Do(result);
}

}  // namespace tessel

#include "runner/run_add_on.h"

#include <algorithm>
#include <optional>

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
        if (rest.size() > 3 && rest.starts_with("(&") && rest[3] == ')') {
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

// While it lives, the component asks these questions.
class QuestionsInstead {
  public:
    QuestionsInstead(ComponentState& state, std::shared_ptr<host::Questions> questions)
        : state_(state), before_(std::exchange(state.questions, std::move(questions))) {}
    ~QuestionsInstead() { state_.questions = before_; }
    QuestionsInstead(const QuestionsInstead&) = delete;
    QuestionsInstead& operator=(const QuestionsInstead&) = delete;

  private:
    ComponentState& state_;
    std::shared_ptr<host::Questions> before_;
};

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
        hasChanged_ = database_->ChangeCount() != changesBefore;
        const bool hasSucceeded = end.kind == ToolEnd::Kind::Succeeded;
        if (!hasSucceeded) TellFailure(end.reason);
        if (!hasSucceeded && !(hasChanged_ && KeepsChanges(end))) return false;
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
        const QuestionsInstead instead(state_, questions);
        CallServer server(state_, *questions);
        ToolProcess tool(command, settings_.folder);
        return TalkWithTool(tool, server, settings_.watch, *state_.texts);
    }

    bool KeepsChanges(const ToolEnd& end) {
        if (settings_.onFailure == OnFailure::AskUser)
            return state_.questions->Show({.text = state_.texts->Format(keepText, {caption_}),
                                           .title = state_.Title(),
                                           .icon = host::Icon::Warning,
                                           .buttons = host::Buttons::YesNo}) == host::Answer::Yes;
        return settings_.onFailure == OnFailure::Keep && end.kind != ToolEnd::Kind::Stopped;
    }

    void TellFailure(const std::string& reason) {
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
};

}  // namespace

RunEnd RunAddOn(ComponentState& state, const AddOnEntry& entry, const RunSettings& settings, Value& result) {
    return AddOnRun(state, entry, settings).Do(result);
}

}  // namespace tessel

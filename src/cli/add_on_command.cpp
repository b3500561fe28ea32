#include "cli/add_on_command.h"

#include <fmt/format.h>

#include <csignal>
#include <filesystem>

#include "cli/exit_codes.h"
#include "cli/headless_session.h"
#include "cli/output.h"
#include "cli/printing_questions.h"
#include "runner/call_line.h"
#include "runner/component_list.h"
#include "runner/object_handles.h"
#include "runner/run_add_on.h"
#include "runner/trusted_path.h"
#include "tessel/convert.h"
#include "tessel/error.h"

namespace tessel {

namespace {

volatile std::sig_atomic_t isInterrupted = 0;

extern "C" void NoteInterrupt(int) { isInterrupted = 1; }

// Stops the tool when the program is interrupted, by no signal that it was started to ignore.
class InterruptWatch : public RunWatch {
  public:
    InterruptWatch() {
        for (const int signal : {SIGINT, SIGTERM, SIGHUP})
            if (std::signal(signal, NoteInterrupt) == SIG_IGN) std::signal(signal, SIG_IGN);
    }
    bool GoesOn() override { return isInterrupted == 0; }
};

std::shared_ptr<PrintingQuestions> QuestionsWith(const std::string& answers) {
    auto questions = std::make_shared<PrintingQuestions>();
    try {
        ObjectHandles none;
        questions->SetAnswers(ReadAnswers(ParseLine(answers), none));
    } catch (const Error& error) {
        throw Error(error.Kind(), std::string("--answers: ") + error.what());
    }
    return questions;
}

bool IsKeyed(const Value& value) { return value.As<std::shared_ptr<Collection>>() != nullptr; }

void PrintResult(const Value& result) {
    if (result.IsNull() || result.IsMissing()) return;
    ObjectHandles handles;
    const bool isText = !IsKeyed(result) && !result.As<std::shared_ptr<Object>>();
    fmt::print("{}\n", isText ? ToText(result) : LineOf(ToJson(result, handles)));
}

int ExitCode(RunEnd end) {
    switch (end) {
        case RunEnd::Succeeded:
            return 0;
        case RunEnd::NotVerified:
            return findingsCode;
        case RunEnd::Failed:
            return failureCode;
    }
    return failureCode;
}

}  // namespace

int AddOnRunCommand(const SessionOptions& options, const AddOnRunOptions& run) {
    const auto questions = QuestionsWith(run.answers);
    const auto headless = OpenHeadless(options);
    headless.State().questions = questions;
    InterruptWatch watch;
    const AddOnEntry entry{.caption = run.progID,
                           .name = run.progID,
                           .progID = run.progID,
                           .param = run.param,
                           .verify = run.verify};
    const RunSettings settings{.folder = std::filesystem::current_path(),
                               .watch = watch,
                               .onFailure = run.keep ? OnFailure::Keep : OnFailure::Drop};
    Value result;
    const RunEnd end = RunAddOn(headless.State(), entry, settings, result);
    if (end == RunEnd::Succeeded) {
        PrintResult(result);
        FinishOutput(" What the tool changed is kept.");
    }
    return ExitCode(end);
}

int AddOnListCommand() {
    const auto list = ComponentList::Load(InstalledFolder("libexec"));
    int code = 0;
    for (const auto& file : list.Files()) {
        for (const auto& known : file.classes) {
            const bool isHidden = &list.ClassOf(known.progID) != &known;
            fmt::print("{}: {} ({}{})\n", known.progID, known.file, file.path,
                       isHidden ? ", not used: entered before" : "");
            if (const auto why = WhyNotTrusted(known.file); !why.empty()) Complain(known.progID + ": " + why);
        }
        if (file.fault.empty()) continue;
        Complain(file.fault);
        code = failureCode;
    }
    return code;
}

}  // namespace tessel

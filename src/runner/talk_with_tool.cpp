#include "runner/talk_with_tool.h"

#include <chrono>
#include <cstring>

#include "platform/db/interruptible.h"
#include "tessel/error.h"

namespace tessel {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr milliseconds lookEvery(50);
constexpr milliseconds timeToEnd(1000);
constexpr int mostNonsense = 100;
constexpr std::size_t mostUntaken = 16 * 1024 * 1024;
constexpr std::size_t shownOfALine = 100;

constexpr int stoppedText = 2724;
constexpr int signalText = 2725;
constexpr int exitCodeText = 2726;
constexpr int nonsenseText = 2727;
constexpr int overlongText = 2728;
constexpr int deafText = 2729;

class Conversation {
  public:
    Conversation(ToolProcess& tool, CallServer& server, db::Database& database, RunWatch& watch,
                 const text::Texts& texts)
        : tool_(tool), server_(server), database_(database), watch_(watch), texts_(texts) {}

    ToolEnd Hold() {
        while (!end_) Step();
        if (isSaid_) WaitForEnd();
        tool_.Kill();
        return *std::move(end_);
    }

  private:
    using Event = ToolProcess::Event;

    void Step() {
        std::string line;
        switch (tool_.Next(lookEvery, line)) {
            case Event::Line:
                Take(line);
                break;
            case Event::Overlong:
                FailByItself(texts_.Text(overlongText));
                break;
            case Event::Ended:
                TakeEnd();
                break;
            case Event::TimeUp:
                break;
        }
        if (!end_ && !GoesOn()) end_ = {ToolEnd::Kind::Stopped, {}, texts_.Text(stoppedText)};
    }

    // Asks in its rhythm also while lines come without a pause. The watch may lead back here.
    bool GoesOn() {
        if (isStopped_ || isLooking_ || Clock::now() - lastLook_ < lookEvery) return !isStopped_;
        isLooking_ = true;
        isStopped_ = !watch_.GoesOn();
        isLooking_ = false;
        lastLook_ = Clock::now();
        return !isStopped_;
    }

    void Take(const std::string& text) {
        if (text.find_first_not_of(" \t\r") == std::string::npos) return;
        Json line;
        try {
            line = ParseLine(text);
        } catch (const Error&) {
            return TakeNonsense(text);
        }
        if (line.is_object() && line.contains("member")) return TakeCall(line);
        if (line.is_object() && line.contains("result")) return TakeResult(line["result"]);
        if (line.is_object() && line.contains("error")) return TakeError(line["error"]);
        TakeNonsense(text);
    }

    void TakeCall(const Json& line) {
        nonsense_ = 0;
        if (tool_.Untaken() > mostUntaken) return FailByItself(texts_.Text(deafText));
        const db::Interruptible call(database_, [this] { return GoesOn(); });
        tool_.Send(LineOf(server_.Answer(line)));
    }

    // Its writer may be waiting for an answer.
    void TakeNonsense(const std::string& text) {
        if (++nonsense_ > mostNonsense) return FailByItself(texts_.Format(nonsenseText, {Shortened(text)}));
        tool_.Send(LineOf(server_.Answer(std::string_view(text))));
    }

    void TakeResult(const Json& result) {
        isSaid_ = true;
        try {
            end_ = {ToolEnd::Kind::Succeeded, server_.Read(result), {}};
        } catch (const Error& error) {
            Fail(error.what());
        }
    }

    void TakeError(const Json& error) {
        isSaid_ = true;
        const auto message = error.is_object() ? error.find("message") : error.end();
        const bool isText = error.is_object() && message != error.end() && message->is_string();
        Fail(isText ? message->get<std::string>() : LineOf(error));
    }

    // What it said does not count when it ended badly afterwards, but a failure keeps its own reason.
    void TakeEnd() {
        if (end_ && end_->kind != ToolEnd::Kind::Succeeded) return;
        if (tool_.Signal() != 0)
            FailByItself(
                texts_.Format(signalText, {std::to_string(tool_.Signal()), strsignal(tool_.Signal())}));
        else if (tool_.ExitCode() != 0)
            FailByItself(texts_.Format(exitCodeText, {std::to_string(tool_.ExitCode())}));
        else if (!end_)
            end_ = ToolEnd{};
    }

    void Fail(std::string reason) { end_ = {ToolEnd::Kind::Failed, {}, std::move(reason)}; }

    // Of a tool that did not say why.
    void FailByItself(const std::string& reason) { Fail(reason + LastComplaints()); }

    // The last lines of its error output, each on a line of its own.
    [[nodiscard]] std::string LastComplaints() const {
        constexpr int mostLines = 10;
        std::string text = tool_.Complaints();
        text.erase(text.find_last_not_of(" \t\r\n") + 1);
        std::size_t start = text.size();
        for (int lines = 0; lines < mostLines && start != std::string::npos; ++lines)
            start = start == 0 ? std::string::npos : text.rfind('\n', start - 1);
        if (start != std::string::npos) text.erase(0, start + 1);
        return text.empty() ? text : "\n" + text;
    }

    static std::string Shortened(const std::string& text) {
        return LineOf(Json(text.substr(0, shownOfALine)));
    }

    // One that hangs after its last word is not waited for.
    void WaitForEnd() {
        const auto latest = Clock::now() + timeToEnd;
        std::string line;
        while (Clock::now() < latest && GoesOn()) {
            const Event event = tool_.Next(lookEvery, line);
            if (event == Event::Ended) return TakeEnd();
            if (event == Event::Overlong) return;
        }
    }

    ToolProcess& tool_;
    CallServer& server_;
    db::Database& database_;
    RunWatch& watch_;
    const text::Texts& texts_;
    std::optional<ToolEnd> end_;
    bool isSaid_ = false;  // the tool itself said how it ended
    int nonsense_ = 0;     // lines in a row
    bool isLooking_ = false;
    bool isStopped_ = false;
    Clock::time_point lastLook_ = Clock::now();
};

}  // namespace

ToolEnd TalkWithTool(ToolProcess& tool, CallServer& server, db::Database& database, RunWatch& watch,
                     const text::Texts& texts) {
    return Conversation(tool, server, database, watch, texts).Hold();
}

}  // namespace tessel

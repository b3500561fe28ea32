#pragma once

#include <deque>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "host/questions.h"

namespace tessel {

// The text typed into an input dialog that is then confirmed.
struct TypedText {
    std::string text;
    bool operator==(const TypedText&) const = default;
};
using QueuedAnswer = std::variant<host::Answer, TypedText>;

// What was asked, and how it was answered.
struct AskedQuestion {
    std::string text;
    host::Icon icon = host::Icon::None;
    host::Buttons buttons = host::Buttons::OK;
    std::string detail;
    QueuedAnswer answer;
};

// The question in one line, with its reason.
[[nodiscard]] std::string OneLine(const AskedQuestion& question);

// Answers from a queue, for programs without a screen. A question that finds the queue empty is answered
// Cancel (No where there is no Cancel); a message with an OK button alone needs no answer. An answer that
// does not fit its question throws ErrorKind::Answer.
class QueuedQuestions : public host::Questions {
  public:
    void SetAnswers(std::deque<QueuedAnswer> answers) { answers_ = std::move(answers); }
    // What was asked since the last call.
    [[nodiscard]] std::vector<AskedQuestion> TakeAsked() { return std::exchange(asked_, {}); }

    host::Answer Show(const host::MessageBox& box) override;
    std::optional<std::string> Ask(const host::InputBox& box) override;

  private:
    // The next answer, or `otherwise` when there is none.
    QueuedAnswer NextAnswer(host::Answer otherwise);

    std::deque<QueuedAnswer> answers_;
    std::vector<AskedQuestion> asked_;
};

}  // namespace tessel

#pragma once

#include <deque>
#include <memory>
#include <optional>
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
// Values for fields of a form, which is then confirmed; the other fields keep theirs. A value that cannot be
// entered in its field does not fit.
struct FilledForm {
    std::shared_ptr<Collection> values;
    bool operator==(const FilledForm&) const = default;
};
using QueuedAnswer = std::variant<host::Answer, TypedText, FilledForm>;

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
    // The answers to the questions that follow, in place of earlier ones.
    void SetAnswers(std::deque<QueuedAnswer> answers) {
        isGiven_ = true;
        answers_ = std::move(answers);
    }
    // Leaves every question that follows to its usual answer.
    void ForgetAnswers() {
        isGiven_ = false;
        answers_.clear();
    }
    // What was asked since the last call.
    [[nodiscard]] std::vector<AskedQuestion> TakeAsked() { return std::exchange(asked_, {}); }

    host::Answer Show(const host::MessageBox& box) override;
    std::optional<std::string> Ask(const host::InputBox& box) override;
    std::shared_ptr<Collection> Fill(const host::Form& form) override;

  protected:
    [[nodiscard]] bool AreAnswersGiven() const { return isGiven_; }
    void Note(AskedQuestion asked) { asked_.push_back(std::move(asked)); }

  private:
    // The next answer, or `otherwise` when there is none.
    QueuedAnswer NextAnswer(host::Answer otherwise);

    bool isGiven_ = false;
    std::deque<QueuedAnswer> answers_;
    std::vector<AskedQuestion> asked_;
};

}  // namespace tessel

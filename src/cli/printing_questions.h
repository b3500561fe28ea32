#pragma once

#include "engine/queued_questions.h"

namespace tessel {

// Answers from a queue, and prints what was asked: plain messages on the standard output, what warns or waits
// for an answer, with the answer that it got, on the error output.
class PrintingQuestions : public QueuedQuestions {
  public:
    host::Answer Show(const host::MessageBox& box) override;
    std::optional<std::string> Ask(const host::InputBox& box) override;
    std::shared_ptr<Collection> Fill(const host::Form& form) override;

  private:
    void PrintAsked();
};

}  // namespace tessel

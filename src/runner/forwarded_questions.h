#pragma once

#include <memory>

#include "engine/queued_questions.h"

namespace tessel {

// The questions of a tool: those that its call brings answers for are answered so, the others go to the user.
class ForwardedQuestions : public QueuedQuestions {
  public:
    explicit ForwardedQuestions(std::shared_ptr<host::Questions> user) : user_(std::move(user)) {}

    host::Answer Show(const host::MessageBox& box) override;
    std::optional<std::string> Ask(const host::InputBox& box) override;
    std::shared_ptr<Collection> Fill(const host::Form& form) override;

  private:
    std::shared_ptr<host::Questions> user_;
};

}  // namespace tessel

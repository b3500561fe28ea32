#include "runner/forwarded_questions.h"

namespace tessel {

host::Answer ForwardedQuestions::Show(const host::MessageBox& box) {
    if (AreAnswersGiven()) return QueuedQuestions::Show(box);
    const host::Answer answer = user_->Show(box);
    Note({box.text, box.icon, box.buttons, box.detail, answer});
    return answer;
}

std::optional<std::string> ForwardedQuestions::Ask(const host::InputBox& box) {
    if (AreAnswersGiven()) return QueuedQuestions::Ask(box);
    auto typed = user_->Ask(box);
    QueuedAnswer answer = host::Answer::Cancel;
    if (typed) answer = TypedText{*typed};
    Note({box.prompt, host::Icon::None, host::Buttons::OKCancel, {}, answer});
    return typed;
}

std::shared_ptr<Collection> ForwardedQuestions::Fill(const host::Form& form) {
    if (AreAnswersGiven()) return QueuedQuestions::Fill(form);
    auto values = user_->Fill(form);
    QueuedAnswer answer = host::Answer::Cancel;
    if (values) answer = FilledForm{values};
    Note({form.title, host::Icon::None, host::Buttons::OKCancel, {}, answer});
    return values;
}

}  // namespace tessel

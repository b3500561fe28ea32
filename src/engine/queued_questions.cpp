#include "engine/queued_questions.h"

#include "schema/sql_text.h"
#include "tessel/error.h"

namespace tessel {

namespace {

using host::Answer;
using host::Buttons;

bool Offers(Buttons buttons, Answer answer) {
    switch (buttons) {
        case Buttons::OK:
            return answer == Answer::OK;
        case Buttons::OKCancel:
            return answer == Answer::OK || answer == Answer::Cancel;
        case Buttons::YesNo:
            return answer == Answer::Yes || answer == Answer::No;
    }
    return false;
}

[[noreturn]] void Refuse(const std::string& question) {
    throw Error(ErrorKind::Answer, "The answer given does not fit the question \"" + question + "\".");
}

}  // namespace

std::string OneLine(const AskedQuestion& question) {
    return FlattenText(question.text + " " + question.detail);
}

QueuedAnswer QueuedQuestions::NextAnswer(Answer otherwise) {
    if (answers_.empty()) return otherwise;
    const QueuedAnswer answer = answers_.front();
    answers_.pop_front();
    return answer;
}

Answer QueuedQuestions::Show(const host::MessageBox& box) {
    QueuedAnswer given = Answer::OK;
    if (box.buttons != Buttons::OK)
        given = NextAnswer(box.buttons == Buttons::YesNo ? Answer::No : Answer::Cancel);
    const auto* answer = std::get_if<Answer>(&given);
    if (!answer || !Offers(box.buttons, *answer)) Refuse(box.text);
    asked_.push_back({box.text, box.icon, box.buttons, box.detail, *answer});
    return *answer;
}

std::optional<std::string> QueuedQuestions::Ask(const host::InputBox& box) {
    QueuedAnswer given = NextAnswer(Answer::Cancel);
    if (given == QueuedAnswer(Answer::OK)) given = TypedText{box.text};  // the proposal as it stands
    const auto* typed = std::get_if<TypedText>(&given);
    if (!typed && given != QueuedAnswer(Answer::Cancel)) Refuse(box.prompt);
    asked_.push_back({box.prompt, host::Icon::None, Buttons::OKCancel, {}, given});
    return typed ? std::optional(typed->text) : std::nullopt;
}

}  // namespace tessel

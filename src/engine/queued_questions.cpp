#include "engine/queued_questions.h"

#include <algorithm>

#include "schema/sql_text.h"
#include "tessel/convert.h"
#include "tessel/error.h"

namespace tessel {

namespace {

using host::Answer;
using host::Buttons;
using host::Form;
using host::FormField;

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

bool HasValue(const FormField& field) {
    return field.kind != FormField::Kind::Note && field.kind != FormField::Kind::List;
}

[[noreturn]] void Refuse(const std::string& question) {
    throw Error(ErrorKind::Answer, "The answer given does not fit the question \"" + question + "\".");
}

[[noreturn]] void RefuseField(const Form& form, const std::string& key) {
    throw Error(ErrorKind::Answer, "The answer given does not fit the field \"" + key +
                                       "\" of the question \"" + form.title + "\".");
}

// A number with a fraction is not rounded, but refused.
std::int32_t WholeNumber(const Value& given) {
    const std::int32_t number = ToInt32(given);
    if (given.As<bool>() || ToDouble(given) != number)
        throw Error(ErrorKind::Conversion, "This is no whole number.");
    return number;
}

// The value as the form's field would give it in a window, where one that does not fit cannot be entered.
Value Entered(const Form& form, const FormField& field, const Value& given) {
    try {
        if (field.kind == FormField::Kind::Number) return WholeNumber(given);
        if (field.kind == FormField::Kind::Check) return ToBoolean(given);
        const std::string text = ToText(given);
        const auto isText = [&](const auto& choice) { return choice.first == text; };
        if (field.kind != FormField::Kind::Choice || std::ranges::any_of(field.choices, isText)) return text;
    } catch (const Error&) {  // refused like any other
    }
    RefuseField(form, field.key);
}

// The values of the form's fields, those that are given in place of its own.
std::shared_ptr<Collection> FilledIn(const Form& form, const Collection& given) {
    auto values = std::make_shared<Collection>();
    for (const auto& field : form.fields) {
        if (!HasValue(field)) continue;
        const Value* value = given.Find(field.key);
        values->Add(value ? Entered(form, field, *value) : field.value, field.key);
    }
    for (const auto& item : given)
        if (!values->HasKey(item.key)) RefuseField(form, item.key);
    return values;
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

std::shared_ptr<Collection> QueuedQuestions::Fill(const Form& form) {
    QueuedAnswer given = NextAnswer(Answer::Cancel);
    if (given == QueuedAnswer(Answer::OK)) given = FilledForm{std::make_shared<Collection>()};
    const auto* filled = std::get_if<FilledForm>(&given);
    if (!filled && given != QueuedAnswer(Answer::Cancel)) Refuse(form.title);
    auto values = filled ? FilledIn(form, *filled->values) : nullptr;
    asked_.push_back({form.title, host::Icon::None, Buttons::OKCancel, {}, given});
    return values;
}

}  // namespace tessel

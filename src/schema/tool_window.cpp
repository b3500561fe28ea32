#include "schema/tool_window.h"

#include "schema/component_state.h"
#include "schema/form_reader.h"
#include "schema/question_words.h"
#include "tessel/convert.h"
#include "tessel/error.h"

namespace tessel {

namespace {

namespace words = question_words;

constexpr int addOnsHelpContext = 4010080;

template <typename Words, typename Otherwise>
Otherwise Named(const Words& known, const Value& word, Otherwise otherwise) {
    if (word.IsMissing() || word.IsNull()) return otherwise;
    const auto meaning = words::Meaning(known, ToText(word));
    if (!meaning) throw Error(ErrorKind::Argument, "\"" + ToText(word) + "\" is no word known here.");
    return *meaning;
}

}  // namespace

std::string ToolWindow::Message(const std::string& text, const Value& icon, const Value& buttons) {
    const host::Answer answer =
        State().questions->Show({.text = text,
                                 .title = State().Title(),
                                 .icon = Named(words::icons, icon, host::Icon::Information),
                                 .buttons = Named(words::buttons, buttons, host::Buttons::OK)});
    return words::WordOf(words::answers, answer);
}

Value ToolWindow::Input(const std::string& prompt, const Value& text) {
    const std::string start = text.IsMissing() || text.IsNull() ? std::string() : ToText(text);
    const auto typed = State().questions->Ask({.prompt = prompt, .title = State().Title(), .text = start});
    return typed ? Value(*typed) : Value(Null{});
}

Value ToolWindow::Form(const Collection& form) {
    host::Form shown = ReadForm(form);
    shown.helpContext = addOnsHelpContext;
    const auto values = State().questions->Fill(shown);
    return values ? Value(values) : Value(Null{});
}

}  // namespace tessel

#include "cli/printing_questions.h"

#include <fmt/format.h>

#include <cstdio>

#include "cli/output.h"
#include "runner/call_line.h"

namespace tessel {

namespace {

bool IsPlain(const host::MessageBox& box) {
    return box.buttons == host::Buttons::OK &&
           (box.icon == host::Icon::None || box.icon == host::Icon::Information);
}

}  // namespace

// Each line that was asked, and after a question the answer.
void PrintingQuestions::PrintAsked() {
    for (const auto& asked : TakeAsked()) {
        const std::string answer =
            asked.buttons == host::Buttons::OK ? std::string() : " -> " + LineOf(AskedJson(asked)["answer"]);
        PrintAside(OneLine(asked) + answer);
    }
}

host::Answer PrintingQuestions::Show(const host::MessageBox& box) {
    const host::Answer answer = QueuedQuestions::Show(box);
    if (!IsPlain(box)) {
        PrintAsked();
        return answer;
    }
    for (const auto& asked : TakeAsked()) fmt::print("{}\n", asked.text);
    std::fflush(stdout);
    return answer;
}

std::optional<std::string> PrintingQuestions::Ask(const host::InputBox& box) {
    auto typed = QueuedQuestions::Ask(box);
    PrintAsked();
    return typed;
}

std::shared_ptr<Collection> PrintingQuestions::Fill(const host::Form& form) {
    auto values = QueuedQuestions::Fill(form);
    PrintAsked();
    return values;
}

}  // namespace tessel

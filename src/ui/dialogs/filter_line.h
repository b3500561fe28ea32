#pragma once

#include <cstdint>
#include <functional>
#include <string>

class QLineEdit;

namespace tessel {

// Takes a text as the user typed it and the caret, and returns where the caret belongs then, both counted in
// characters.
using EditText = std::function<std::int32_t(const std::string& text, std::int32_t caret)>;

// Hands each text that the user types into the line to `edit`; then `refresh` shows what became of it, and
// the caret goes where it belongs.
void FilterLine(QLineEdit& line, EditText edit, std::function<void()> refresh);

// Shows the text. A line that shows it already keeps its caret and what can be undone.
void ShowText(QLineEdit& line, const std::string& text);

}  // namespace tessel

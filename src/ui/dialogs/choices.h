#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

class QComboBox;

// Drop-down lists of texts, one of which, or none, is chosen.
namespace tessel {

[[nodiscard]] QComboBox* ChoiceBox(const char* name, const std::vector<std::string>& texts);

void ShowChoice(QComboBox& box, std::optional<std::size_t> choice);

// Calls `choose` when the user chooses a text.
void OnChoice(QComboBox& box, const std::function<void(std::size_t)>& choose);

}  // namespace tessel

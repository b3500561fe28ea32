#include "ui/dialogs/choices.h"

#include <QComboBox>

#include "ui/controls/connect.h"

namespace tessel {

QComboBox* ChoiceBox(const char* name, const std::vector<std::string>& texts) {
    auto* box = new QComboBox;
    box->setObjectName(name);
    for (const auto& text : texts) box->addItem(QString::fromStdString(text));
    return box;
}

void ShowChoice(QComboBox& box, std::optional<std::size_t> choice) {
    box.setCurrentIndex(choice ? static_cast<int>(*choice) : -1);
}

void OnChoice(QComboBox& box, const std::function<void(std::size_t)>& choose) {
    Connect(&box, &QComboBox::activated, &box,
            [choose](int choice) { choose(static_cast<std::size_t>(choice)); });
}

}  // namespace tessel

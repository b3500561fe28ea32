#pragma once

#include <string>
#include <vector>

#include "tessel/vntws.h"

namespace tessel {

// A combo box without a screen.
class ListCombo : public TableCombo {
  public:
    struct Item {
        std::string text;
        std::int32_t data;
    };

    void Clear() override;
    void AddItem(const std::string& text, std::int32_t itemData) override {
        items_.push_back({text, itemData});
    }
    int ItemCount() const override { return static_cast<int>(items_.size()); }
    int SelectedIndex() const override { return selected_; }
    void Select(int index) override { selected_ = index; }
    [[nodiscard]] const std::vector<Item>& Items() const { return items_; }

    // For in-process use only: nothing of it is called by name.
    Value Call(std::string_view member, CallKind kind, Arguments& arguments) override;

  private:
    std::vector<Item> items_;
    int selected_ = -1;
};

}  // namespace tessel

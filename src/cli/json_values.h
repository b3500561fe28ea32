#pragma once

#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tessel/vntws.h"

namespace tessel {

using Json = nlohmann::ordered_json;

// Values as they stand in a JSON line:
//   null                                       Null
//   {"missing":true}                           an argument that is not passed
//   {"date":"2026-01-31T10:00:00"}             a date
//   {"combo":...}                              a combo box to be filled; afterwards
//                                              {"combo":{"items":[{"text":"A","data":1}],"selected":0}}
//   {"object":"..."}                           (answers only) an object, by what it is
//   any other object                           a keyed collection, in its order
// Whole numbers of 32 bits are integers, all others doubles. An array, or a date that is none, throws
// ErrorKind::JsonLine.
[[nodiscard]] Value FromJson(const Json& json);
[[nodiscard]] Json ToJson(const Value& value);

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

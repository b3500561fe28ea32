#include <algorithm>

#include "platform/text/utf8.h"
#include "tessel/error.h"
#include "tessel/value.h"

namespace tessel {

namespace {

// So few items are looked through one by one. The row of a query is such a collection, and a map of its keys
// would take more time and memory than the row itself.
constexpr std::size_t fewItems = 16;

[[noreturn]] void RefuseTaken(const std::string& key) {
    throw Error(ErrorKind::Collection, "The collection already holds an item with the key \"" + key + "\".");
}

}  // namespace

void Collection::Add(Value value, std::string key) {
    if (items_.size() < fewItems) {
        if (HasKey(key)) RefuseTaken(key);
    } else {
        for (std::size_t i = positions_.size(); i < items_.size(); ++i)
            positions_.emplace(text::LowerAscii(items_[i].key), i);
        if (!positions_.emplace(text::LowerAscii(key), items_.size()).second) RefuseTaken(key);
    }
    items_.push_back({std::move(key), std::move(value)});
}

const Value* Collection::Find(std::string_view key) const {
    if (items_.size() <= fewItems) {
        const auto item =
            std::ranges::find_if(items_, [&](const Item& each) { return text::SameText(each.key, key); });
        return item == items_.end() ? nullptr : &item->value;
    }
    const auto position = positions_.find(text::LowerAscii(key));
    return position == positions_.end() ? nullptr : &items_[position->second].value;
}

const Value& Collection::At(std::string_view key) const {
    if (const Value* value = Find(key)) return *value;
    throw Error(ErrorKind::Collection,
                "The collection holds no item with the key \"" + std::string(key) + "\".");
}

}  // namespace tessel

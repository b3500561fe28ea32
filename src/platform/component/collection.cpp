#include "platform/text/utf8.h"
#include "tessel/error.h"
#include "tessel/value.h"

namespace tessel {

void Collection::Add(Value value, std::string key) {
    if (!positions_.emplace(text::LowerAscii(key), items_.size()).second)
        throw Error(ErrorKind::Collection,
                    "The collection already holds an item with the key \"" + key + "\".");
    items_.push_back({std::move(key), std::move(value)});
}

const Value* Collection::Find(std::string_view key) const {
    const auto position = positions_.find(text::LowerAscii(key));
    return position == positions_.end() ? nullptr : &items_[position->second].value;
}

const Value& Collection::At(std::string_view key) const {
    if (const Value* value = Find(key)) return *value;
    throw Error(ErrorKind::Collection,
                "The collection holds no item with the key \"" + std::string(key) + "\".");
}

}  // namespace tessel

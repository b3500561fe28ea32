#pragma once

#include <algorithm>
#include <functional>
#include <iterator>
#include <nlohmann/json.hpp>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace tessel {

// The items of a JSON object in the order of adding. An item is found without a search through all others, so
// that a line of many thousands takes no more than its share of time.
template <class Key, class Item, class Less = std::less<Key>,
          class Allocator = std::allocator<std::pair<const Key, Item>>>
class KeyedItems : public nlohmann::ordered_map<Key, Item, Less, Allocator> {
    using Base = nlohmann::ordered_map<Key, Item, Less, Allocator>;
    using List = typename Base::Container;

  public:
    using Base::Base;
    using typename Base::const_iterator;
    using typename Base::iterator;
    using typename Base::size_type;

    template <class Name>
    std::pair<iterator, bool> emplace(Name&& name, Item&& item) {
        if (const auto known = find(name); known != this->end()) return {known, false};
        List::emplace_back(std::forward<Name>(name), std::move(item));
        return {std::prev(this->end()), true};
    }
    template <class Name>
    Item& operator[](Name&& name) {
        return emplace(std::forward<Name>(name), Item{}).first->second;
    }

    iterator find(std::string_view name) { return this->begin() + PlaceOf(name); }
    const_iterator find(std::string_view name) const { return this->begin() + PlaceOf(name); }
    size_type count(std::string_view name) const { return find(name) == this->end() ? 0 : 1; }

    template <class... Which>
    auto erase(Which&&... which) {
        places_.clear();
        return Base::erase(std::forward<Which>(which)...);
    }
    void clear() {
        places_.clear();
        List::clear();
    }

  private:
    static constexpr size_type fewItems = 16;

    [[nodiscard]] std::ptrdiff_t PlaceOf(std::string_view name) const {
        if (this->size() > fewItems) return IndexedPlaceOf(name);
        const auto isNamed = [name](const auto& item) { return item.first == name; };
        return std::find_if(this->begin(), this->end(), isNamed) - this->begin();
    }

    // Items are only ever added at the end, so those that are not indexed yet are the last ones.
    [[nodiscard]] std::ptrdiff_t IndexedPlaceOf(std::string_view name) const {
        const std::hash<std::string_view> hash;
        for (size_type i = places_.size(); i < this->size(); ++i) places_.emplace(hash(At(i).first), i);
        const auto [first, last] = places_.equal_range(hash(name));
        for (auto place = first; place != last; ++place)
            if (At(place->second).first == name) return static_cast<std::ptrdiff_t>(place->second);
        return static_cast<std::ptrdiff_t>(this->size());
    }

    [[nodiscard]] const auto& At(size_type place) const { return List::operator[](place); }

    mutable std::unordered_multimap<std::size_t, size_type> places_;  // by the names' hashes
};

using Json = nlohmann::basic_json<KeyedItems>;

}  // namespace tessel

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <variant>
#include <vector>

#include "tessel/date_time.h"

namespace tessel {

class Object;
class Collection;

// An optional argument that the caller left out.
struct Missing {
    bool operator==(const Missing&) const = default;
};

// The database's Null.
struct Null {
    bool operator==(const Null&) const = default;
};

// The one variant type: arguments, results, field values. Text is UTF-8.
class Value {
  public:
    using Data = std::variant<Null, Missing, bool, std::int16_t, std::int32_t, double, std::string, DateTime,
                              std::shared_ptr<Object>, std::shared_ptr<Collection>>;

    Value() = default;  // Null
    Value(Null) {}
    Value(Missing missing) : data_(missing) {}
    Value(bool value) : data_(value) {}
    Value(std::int16_t value) : data_(value) {}
    Value(std::int32_t value) : data_(value) {}
    Value(double value) : data_(value) {}
    Value(DateTime value) : data_(value) {}
    Value(std::string value) : data_(std::move(value)) {}
    Value(std::string_view value) : data_(std::string(value)) {}
    Value(const char* value) : data_(std::string(value)) {}
    Value(std::shared_ptr<Object> value) : data_(std::move(value)) {}
    Value(std::shared_ptr<Collection> value) : data_(std::move(value)) {}

    [[nodiscard]] bool IsMissing() const { return std::holds_alternative<Missing>(data_); }
    [[nodiscard]] bool IsNull() const { return std::holds_alternative<Null>(data_); }
    [[nodiscard]] bool IsEmptyText() const {
        const auto* text = std::get_if<std::string>(&data_);
        return text && text->empty();
    }

    template <typename T>
    [[nodiscard]] const T* As() const {
        return std::get_if<T>(&data_);
    }
    [[nodiscard]] const Data& Contents() const { return data_; }

    bool operator==(const Value&) const = default;

  private:
    Data data_;
};

using Arguments = std::vector<Value>;

// Items in the order of adding, each under a key of its own; keys compare without regard to ASCII case.
class Collection {
  public:
    struct Item {
        std::string key;
        Value value;
    };

    void Add(Value value, std::string key);  // a key that is taken throws ErrorKind::Collection
    [[nodiscard]] bool HasKey(std::string_view key) const { return Find(key) != nullptr; }
    [[nodiscard]] const Value& At(std::string_view key) const;  // throws ErrorKind::Collection
    [[nodiscard]] const Value* Find(std::string_view key) const;
    [[nodiscard]] std::size_t Count() const { return items_.size(); }
    [[nodiscard]] auto begin() const { return items_.begin(); }
    [[nodiscard]] auto end() const { return items_.end(); }

  private:
    std::vector<Item> items_;
    std::unordered_map<std::string, std::size_t> positions_;  // by key in lower case
};

}  // namespace tessel

#pragma once

#include <unordered_map>

#include "lines/json_values.h"

namespace tessel {

// The objects that calls by lines have been given, each under a number of its own, from 1 up. They live as
// long as this does.
class ObjectHandles : public ObjectsInLines {
  public:
    // {"object":"PROJECT","identifier":"O1","handle":1}; what is no object of the repository is called
    // "database", "window" or "object" and has no identifier. The same object has the same handle.
    Json ToJson(const std::shared_ptr<Object>& object) override;
    std::shared_ptr<Object> FromJson(const Json& json) override;

    [[nodiscard]] std::shared_ptr<Object> At(const Json& handle) const;  // throws ErrorKind::JsonLine

  private:
    int HandleOf(const std::shared_ptr<Object>& object);

    std::vector<std::shared_ptr<Object>> objects_;  // the handle 1 is the first
    std::unordered_map<Object*, int> handles_;
};

}  // namespace tessel

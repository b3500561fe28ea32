#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "lines/keyed_items.h"
#include "tessel/object.h"

namespace tessel {

// How objects stand in lines. The side that has an object gives it a handle; the other side has a stand-in
// for it, which it passes back as the handle.
class ObjectsInLines {
  public:
    virtual ~ObjectsInLines() = default;

    // {"object":"...", "handle":1}, with more that tells what it is.
    virtual Json ToJson(const std::shared_ptr<Object>& object) = 0;
    // The object that a handle stands for, in a JSON object that has the item "handle". Throws
    // ErrorKind::JsonLine for a handle that was never given.
    virtual std::shared_ptr<Object> FromJson(const Json& json) = 0;
};

// Values as they stand in a line:
//   null                                       Null
//   {"missing":true}                           an argument that is not passed
//   {"date":"2026-01-31T10:00:00"}             a date
//   {"combo":...}                              a combo box to be filled; afterwards
//                                              {"combo":{"items":[{"text":"A","data":1}],"selected":0}}
//   {"handle":1}                               an object, as `objects` knows it
//   any other object                           a keyed collection, in its order
//   {"collection":{...}}                       one whose keys would make it one of those above
// Whole numbers of 32 bits are integers, all others doubles. An array, or a date that is none, throws
// ErrorKind::JsonLine.
[[nodiscard]] Value FromJson(const Json& json, ObjectsInLines& objects);
[[nodiscard]] Json ToJson(const Value& value, ObjectsInLines& objects);

// The item of the object that has no other, when its key is `key`; nothing for anything else.
[[nodiscard]] const Json* OnlyItem(const Json& json, const char* key);

// Parses a line; throws ErrorKind::JsonLine when it is no JSON, or nested too deeply to be a call.
[[nodiscard]] Json ParseLine(std::string_view text);

// A line without its end. What is no UTF-8 in a text is replaced.
[[nodiscard]] std::string LineOf(const Json& json);

}  // namespace tessel

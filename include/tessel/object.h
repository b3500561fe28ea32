#pragma once

#include <string_view>

#include "tessel/value.h"

namespace tessel {

enum class CallKind { Method, Get, Put };

// Anything that can be called by name.
class Object {
  public:
    virtual ~Object() = default;

    // Calls the member `member` (case ignored) and returns its result, Null when it has none. Arguments stand
    // in the order of the member's parameters and are changed in place where the member hands values back;
    // those left off at the end count as not passed. Method reads a property, too. Put takes the new value as
    // its only argument. Throws ErrorKind::Member for an unknown member, Argument or Conversion for arguments
    // that do not fit, and whatever the member throws.
    virtual Value Call(std::string_view member, CallKind kind, Arguments& arguments) = 0;
};

}  // namespace tessel

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/text/texts.h"
#include "platform/xml/document.h"

// What the attributes of an option tree's elements say.
namespace tessel {

// Whether a VALUE is that of an option which is switched on.
[[nodiscard]] bool IsOn(std::string_view value);

// The attribute VISIBLE; an element without one is visible.
[[nodiscard]] bool IsVisible(const xml::Element& element);

// The attribute, empty when it is not there.
[[nodiscard]] std::string AttributeOf(const xml::Element& element, std::string_view name);

// The attribute as the user is shown it: a '@' and a number stand for the text of that number.
[[nodiscard]] std::string ShownText(const xml::Element& element, std::string_view attribute,
                                    const text::Texts& texts);

// The whole text as a number; nothing when it is none.
[[nodiscard]] std::optional<int> NumberIn(std::string_view text);

}  // namespace tessel

#include "schema/option_text.h"

#include <charconv>

#include "platform/text/utf8.h"

namespace tessel {

bool IsOn(std::string_view value) { return text::SameText(value, "True") || value == "1" || value == "-1"; }

bool IsVisible(const xml::Element& element) {
    const auto visible = element.Attribute("VISIBLE");
    return !visible || IsOn(*visible);
}

std::string AttributeOf(const xml::Element& element, std::string_view name) {
    return element.Attribute(name).value_or("");
}

std::string ShownText(const xml::Element& element, std::string_view attribute, const text::Texts& texts) {
    std::string text = AttributeOf(element, attribute);
    const auto number = text.starts_with('@') ? NumberIn(std::string_view(text).substr(1)) : std::nullopt;
    return number ? texts.Text(*number) : text;
}

std::optional<int> NumberIn(std::string_view text) {
    int number = 0;
    const auto [stop, fault] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (fault != std::errc() || stop != text.data() + text.size()) return std::nullopt;
    return number;
}

}  // namespace tessel

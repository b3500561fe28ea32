#include "ui/rules/option_case.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

#include "platform/text/utf8.h"
#include "tessel/error.h"

namespace tessel {

namespace {

constexpr std::pair<const char*, Option::Kind> kinds[] = {
    {"BOOL", Option::Kind::Bool}, {"TEXT", Option::Kind::Text},  {"NUMBER", Option::Kind::Number},
    {"LIST", Option::Kind::List}, {"CASE", Option::Kind::Group}, {"GROUP", Option::Kind::Group}};

// The whole text as a number; nothing when it is none.
std::optional<int> NumberIn(std::string_view text) {
    int number = 0;
    const auto [stop, fault] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (fault != std::errc() || stop != text.data() + text.size()) return std::nullopt;
    return number;
}

std::string AttributeOf(const xml::Element& element, std::string_view name) {
    return element.Attribute(name).value_or("");
}

std::string ShownText(const xml::Element& element, std::string_view attribute, const text::Texts& texts) {
    std::string text = AttributeOf(element, attribute);
    const auto number = text.starts_with('@') ? NumberIn(std::string_view(text).substr(1)) : std::nullopt;
    return number ? texts.Text(*number) : text;
}

std::string ValueOf(const xml::Element& element, Option::Kind kind) {
    std::string value = AttributeOf(element, "VALUE");
    if (kind == Option::Kind::Bool) return IsOn(value) ? "True" : "False";
    if (kind == Option::Kind::Number) return std::to_string(NumberIn(value).value_or(0));
    return value;
}

std::vector<Option::Item> ItemsOf(const xml::Element& list, const text::Texts& texts) {
    std::vector<Option::Item> items;
    for (const auto& element : list.Children()) {
        if (element.Name() != "ITEM") continue;
        const std::string value = AttributeOf(element, "VALUE");
        const std::string caption = ShownText(element, "CAPTION", texts);
        items.push_back({value, caption.empty() ? value : caption});
    }
    return items;
}

bool IsVisible(const xml::Element& element) {
    const auto visible = element.Attribute("VISIBLE");
    return !visible || IsOn(*visible);
}

Option Read(const xml::Element& element, Option::Kind kind, const text::Texts& texts);

std::vector<Option> OptionsIn(const xml::Element& group, const text::Texts& texts) {
    std::vector<Option> options;
    for (const auto& element : group.Children()) {
        const std::string name = element.Name();
        const auto* kind =
            std::ranges::find_if(kinds, [&](const auto& known) { return name == known.first; });
        if (kind != std::end(kinds) && IsVisible(element))
            options.push_back(Read(element, kind->second, texts));
    }
    return options;
}

Option Read(const xml::Element& element, Option::Kind kind, const text::Texts& texts) {
    Option option{.kind = kind,
                  .name = element.Attribute("NAME").value_or(AttributeOf(element, "ID")),
                  .caption = ShownText(element, "CAPTION", texts),
                  .hint = ShownText(element, "HINT", texts),
                  .value = ValueOf(element, kind),
                  .items = {},
                  .options = {},
                  .element = element};
    if (option.caption.empty()) option.caption = option.name;
    if (kind == Option::Kind::List) option.items = ItemsOf(element, texts);
    if (kind == Option::Kind::Group) option.options = OptionsIn(element, texts);
    return option;
}

}  // namespace

bool IsOn(std::string_view value) { return text::SameText(value, "True") || value == "1" || value == "-1"; }

OptionCase::OptionCase(host::Options& options, const std::string& path, const text::Texts& texts)
    : options_(options), document_(xml::Document::Parse(options.Document().Text(), "project options")) {
    const auto element = document_.SelectSingleNode(path);
    if (!element)
        throw Error(ErrorKind::Xml, "The project options, Options/project.xml, hold no element " + path +
                                        ". Enter it, or delete the file to have the default options again.");
    root_ = Read(element, Option::Kind::Group, texts);
}

void OptionCase::Set(const Option& option, const std::string& value) {
    if (value == option.value) return;
    xml::Element(option.element).SetAttribute("VALUE", value);
    isChanged_ = true;
}

void OptionCase::Save() {
    if (isChanged_) options_.Save(document_);
}

}  // namespace tessel

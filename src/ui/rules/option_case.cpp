#include "ui/rules/option_case.h"

#include <algorithm>
#include <utility>

#include "schema/option_text.h"
#include "tessel/error.h"

namespace tessel {

namespace {

constexpr std::pair<const char*, Option::Kind> kinds[] = {
    {"BOOL", Option::Kind::Bool}, {"TEXT", Option::Kind::Text},  {"NUMBER", Option::Kind::Number},
    {"LIST", Option::Kind::List}, {"CASE", Option::Kind::Group}, {"GROUP", Option::Kind::Group}};

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

OptionCase::OptionCase(host::Options& options, const std::string& path, const text::Texts& texts)
    : options_(options), document_(xml::Document::Parse(options.Document().Text(), "project options")) {
    const auto element = document_.SelectSingleNode(path);
    if (!element)
        throw Error(ErrorKind::Xml, "The project options, Options/project.xml, hold no element " + path +
                                        ". Enter it, or delete the file to have the default options again.");
    root_ = Read(element, Option::Kind::Group, texts);
}

void OptionCase::Set(const Option& option, const std::string& value) {
    if (value == ValueOf(option.element, option.kind)) return;
    xml::Element(option.element).SetAttribute("VALUE", value);
    isChanged_ = true;
}

void OptionCase::Save() {
    if (isChanged_) options_.Save(document_);
}

}  // namespace tessel

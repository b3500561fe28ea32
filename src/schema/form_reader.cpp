#include "schema/form_reader.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "tessel/convert.h"
#include "tessel/error.h"

namespace tessel {

namespace {

using host::Form;
using host::FormField;

constexpr std::array<std::pair<std::string_view, FormField::Kind>, 8> kinds{{
    {"text", FormField::Kind::Text},
    {"number", FormField::Kind::Number},
    {"check", FormField::Kind::Check},
    {"choice", FormField::Kind::Choice},
    {"openFile", FormField::Kind::OpenFile},
    {"saveFile", FormField::Kind::SaveFile},
    {"note", FormField::Kind::Note},
    {"list", FormField::Kind::List},
}};

[[noreturn]] void Refuse(const std::string& what) { throw Error(ErrorKind::Argument, what + "."); }

std::string TextOf(const Value& value, const std::string& key) {
    if (value.IsNull() || value.IsMissing()) return {};
    if (value.As<std::shared_ptr<Collection>>() || value.As<std::shared_ptr<Object>>())
        Refuse("\"" + key + "\" must be a text");
    return ToText(value);
}

std::string TextIn(const Collection& collection, const char* key) {
    const Value* value = collection.Find(key);
    return value ? TextOf(*value, key) : std::string();
}

// An empty collection where there is none.
const Collection& CollectionIn(const Collection& collection, const char* key) {
    static const Collection none;
    const Value* value = collection.Find(key);
    if (!value) return none;
    const auto* inner = value->As<std::shared_ptr<Collection>>();
    if (!inner || !*inner) Refuse(std::string("\"") + key + "\" must be a collection");
    return **inner;
}

const Collection& ItemIn(const Collection::Item& item) {
    const auto* inner = item.value.As<std::shared_ptr<Collection>>();
    if (!inner || !*inner) Refuse("\"" + item.key + "\" must be a collection");
    return **inner;
}

std::vector<std::string> TextsOf(const Collection& collection) {
    std::vector<std::string> texts;
    for (const auto& [key, value] : collection) texts.push_back(TextOf(value, key));
    return texts;
}

FormField::Kind KindOf(const Collection& field) {
    const std::string word = TextIn(field, "kind");
    const auto kind = std::ranges::find(kinds, word, [](const auto& entry) { return entry.first; });
    if (kind == kinds.end()) Refuse("it has no kind that is known");
    return kind->second;
}

template <typename Result>
Result Converted(const Value& value, Result (*convert)(const Value&)) {
    try {
        return convert(value);
    } catch (const Error&) {
        return Result();
    }
}

// What the field shows is what it gives when nobody touches it.
Value ShownValue(const FormField& field, const Value& given) {
    if (field.kind == FormField::Kind::Number) return Converted(given, ToInt32);
    if (field.kind == FormField::Kind::Check) return Converted(given, ToBoolean);
    const std::string text = Converted(given, ToText);
    if (field.kind != FormField::Kind::Choice) return text;
    const auto chosen =
        std::ranges::find(field.choices, text, [](const auto& choice) { return choice.first; });
    if (chosen != field.choices.end()) return text;
    return field.choices.empty() ? std::string() : field.choices.front().first;
}

FormField FieldOf(const std::string& key, const Collection& given) {
    FormField field{.key = key, .kind = KindOf(given)};
    field.caption = TextIn(given, "caption");
    for (const auto& [value, caption] : CollectionIn(given, "choices"))
        field.choices.emplace_back(value, TextOf(caption, value));
    const Value* value = given.Find("value");
    field.value = ShownValue(field, value ? *value : Null{});
    field.filter = TextIn(given, "filter");
    field.columns = TextsOf(CollectionIn(given, "columns"));
    for (const auto& row : CollectionIn(given, "rows")) field.rows.push_back(TextsOf(ItemIn(row)));
    return field;
}

FormField ReadField(const Collection::Item& item) {
    const Collection& given = ItemIn(item);
    try {
        return FieldOf(item.key, given);
    } catch (const Error& error) {
        throw Error(error.Kind(), "the field \"" + item.key + "\": " + error.what());
    }
}

}  // namespace

Form ReadForm(const Collection& form) {
    Form read{
        .title = TextIn(form, "caption"), .text = TextIn(form, "text"), .okCaption = TextIn(form, "ok")};
    for (const auto& field : CollectionIn(form, "fields")) read.fields.push_back(ReadField(field));
    return read;
}

}  // namespace tessel

#include "lines/json_values.h"

#include <utility>

#include "lines/list_combo.h"
#include "tessel/error.h"

namespace tessel {

namespace {

bool IsMissing(const Json& json) {
    const Json* missing = OnlyItem(json, "missing");
    return missing && *missing == true;
}

// The collection that is marked as one, for its keys do not show it.
const Json* MarkedCollection(const Json& json) {
    const Json* marked = OnlyItem(json, "collection");
    return marked && marked->is_object() ? marked : nullptr;
}

bool NeedsMark(const Json& collection) {
    return IsMissing(collection) || MarkedCollection(collection) || OnlyItem(collection, "date") ||
           OnlyItem(collection, "combo") || collection.contains("handle");
}

Value NumberFrom(const Json& json) {
    const auto fits = [](auto number) { return std::in_range<std::int32_t>(number); };
    if (json.is_number_unsigned() && fits(json.get<std::uint64_t>())) return json.get<std::int32_t>();
    if (json.is_number_integer() && !json.is_number_unsigned() && fits(json.get<std::int64_t>()))
        return json.get<std::int32_t>();
    return json.get<double>();
}

Value DateFrom(const Json& json) {
    if (json.is_string())
        if (const auto date = ParseIso(json.get_ref<const std::string&>())) return *date;
    throw Error(ErrorKind::JsonLine,
                "A date is written {\"date\":\"2026-01-31T10:00:00\"}, not " + LineOf(json) + ".");
}

Value ObjectFrom(const Json& json, ObjectsInLines& objects) {
    if (IsMissing(json)) return Missing{};
    if (const Json* date = OnlyItem(json, "date")) return DateFrom(*date);
    if (OnlyItem(json, "combo")) return std::shared_ptr<Object>(std::make_shared<ListCombo>());
    if (json.contains("handle")) return objects.FromJson(json);
    const Json* marked = MarkedCollection(json);
    const Json& items = marked ? *marked : json;
    auto collection = std::make_shared<Collection>();
    for (const auto& [key, item] : items.items()) collection->Add(FromJson(item, objects), key);
    return collection;
}

Json ComboJson(const ListCombo& combo) {
    Json items = Json::array();
    for (const auto& item : combo.Items()) items.push_back({{"text", item.text}, {"data", item.data}});
    return {{"combo", {{"items", items}, {"selected", combo.SelectedIndex()}}}};
}

Json ObjectJson(const std::shared_ptr<Object>& object, ObjectsInLines& objects) {
    if (!object) return nullptr;
    if (const auto* combo = dynamic_cast<const ListCombo*>(object.get())) return ComboJson(*combo);
    return objects.ToJson(object);
}

Json CollectionJson(const std::shared_ptr<Collection>& collection, ObjectsInLines& objects) {
    Json items = Json::object();
    if (collection)
        for (const auto& [key, value] : *collection) items[key] = ToJson(value, objects);
    if (NeedsMark(items)) return {{"collection", std::move(items)}};
    return items;
}

// Looked at before the parser is: its own calls for every part of a line would take a line of many parts far
// longer.
void RefuseDeepNesting(std::string_view text) {
    constexpr int deepest = 100;
    int depth = 0;
    bool isInText = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '"') isInText = !isInText;
        if (isInText && c == '\\') ++i;
        if (isInText) continue;
        if (c == '}' || c == ']') --depth;
        if ((c == '{' || c == '[') && ++depth > deepest)
            throw Error(ErrorKind::JsonLine, "The line is nested too deeply.");
    }
}

}  // namespace

const Json* OnlyItem(const Json& json, const char* key) {
    if (json.size() != 1) return nullptr;
    const auto item = json.find(key);
    return item == json.end() ? nullptr : &*item;
}

Value FromJson(const Json& json, ObjectsInLines& objects) {
    switch (json.type()) {
        case Json::value_t::null:
            return Null{};
        case Json::value_t::boolean:
            return json.get<bool>();
        case Json::value_t::string:
            return json.get<std::string>();
        case Json::value_t::object:
            return ObjectFrom(json, objects);
        default:
            if (json.is_number()) return NumberFrom(json);
            throw Error(ErrorKind::JsonLine, "A value cannot be an array: " + LineOf(json) + ".");
    }
}

Json ToJson(const Value& value, ObjectsInLines& objects) {
    return std::visit(
        [&objects](const auto& content) -> Json {
            using T = std::decay_t<decltype(content)>;
            if constexpr (std::is_same_v<T, Null>)
                return nullptr;
            else if constexpr (std::is_same_v<T, Missing>)
                return {{"missing", true}};
            else if constexpr (std::is_same_v<T, DateTime>)
                return {{"date", FormatIso(content)}};
            else if constexpr (std::is_same_v<T, std::shared_ptr<Object>>)
                return ObjectJson(content, objects);
            else if constexpr (std::is_same_v<T, std::shared_ptr<Collection>>)
                return CollectionJson(content, objects);
            else
                return content;
        },
        value.Contents());
}

Json ParseLine(std::string_view text) {
    RefuseDeepNesting(text);
    try {
        return Json::parse(text);
    } catch (const Json::exception& error) {
        throw Error(ErrorKind::JsonLine, std::string("The line is no JSON: ") + error.what());
    }
}

std::string LineOf(const Json& json) { return json.dump(-1, ' ', false, Json::error_handler_t::replace); }

}  // namespace tessel

#include "addon_host/editor.h"

#include "tessel/error.h"
#include "tessel/vntws.h"

namespace tessel {

namespace {

// Stands for an object of the editor.
class StandIn : public Object {
  public:
    StandIn(std::shared_ptr<Editor> editor, Json on) : editor_(std::move(editor)), on_(std::move(on)) {}

    Value Call(std::string_view member, CallKind kind, Arguments& arguments) override {
        return editor_->Call(on_, member, kind, arguments);
    }
    [[nodiscard]] const Json& On() const { return on_; }

  private:
    std::shared_ptr<Editor> editor_;
    Json on_;
};

[[noreturn]] void Rethrow(const Json& error) {
    const auto kind = KindNamed(error.value("kind", ""));
    throw Error(kind.value_or(ErrorKind::Host), error.value("message", "The call failed."));
}

void Fill(TableCombo& combo, const Json& filled) {
    combo.Clear();
    for (const auto& item : filled.at("items"))
        combo.AddItem(item.at("text").get<std::string>(), item.at("data").get<std::int32_t>());
    if (const int selected = filled.at("selected"); selected >= 0) combo.Select(selected);
}

TableCombo* ComboIn(const Value& argument) {
    const auto* object = argument.As<std::shared_ptr<Object>>();
    return object ? dynamic_cast<TableCombo*>(object->get()) : nullptr;
}

}  // namespace

std::shared_ptr<Editor> Editor::Make(Exchange exchange) {
    return std::shared_ptr<Editor>(new Editor(std::move(exchange)));
}

Json Editor::LineFor(const Json& on, std::string_view member, CallKind kind, const Arguments& arguments) {
    Json line = Json::object();
    if (!on.is_null()) line["on"] = on;
    line["member"] = member;
    if (kind == CallKind::Put) {
        if (arguments.size() > 1)
            throw Error(ErrorKind::Argument, std::string(member) + ": it is set to one value.");
        line["put"] = tessel::ToJson(arguments.empty() ? Missing{} : arguments.front(), *this);
        return line;
    }
    Json& passed = line["args"] = Json::array();
    for (const auto& argument : arguments)
        passed.push_back(ComboIn(argument) ? Json{{"combo", Json::object()}}
                                           : tessel::ToJson(argument, *this));
    return line;
}

void Editor::HandBack(const Json& answered, Arguments& arguments) {
    if (arguments.size() < answered.size()) arguments.resize(answered.size(), Missing{});
    for (std::size_t i = 0; i < answered.size(); ++i)
        if (TableCombo* combo = ComboIn(arguments[i]))
            Fill(*combo, answered[i].at("combo"));
        else
            arguments[i] = tessel::FromJson(answered[i], *this);
}

Value Editor::Call(const Json& on, std::string_view member, CallKind kind, Arguments& arguments) {
    const std::lock_guard lock(oneCall_);
    const Json answer = ParseLine(exchange_(LineOf(LineFor(on, member, kind, arguments))));
    if (const auto error = answer.find("error"); error != answer.end()) Rethrow(*error);
    if (kind != CallKind::Put) HandBack(answer.at("args"), arguments);
    return tessel::FromJson(answer.at("result"), *this);
}

std::shared_ptr<Object> Editor::Named(const std::string& name) {
    return std::make_shared<StandIn>(shared_from_this(), name);
}

Json Editor::ToJson(const std::shared_ptr<Object>& object) {
    const auto* standIn = dynamic_cast<const StandIn*>(object.get());
    if (!standIn || !standIn->On().is_number())
        throw Error(ErrorKind::Argument, "An object of the add-on's own cannot be passed to the editor.");
    return {{"handle", standIn->On()}};
}

std::shared_ptr<Object> Editor::FromJson(const Json& json) {
    auto& known = standIns_[json.at("handle").get<int>()];
    auto standIn = known.lock();
    if (!standIn) known = standIn = std::make_shared<StandIn>(shared_from_this(), json.at("handle"));
    return standIn;
}

}  // namespace tessel

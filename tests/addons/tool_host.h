#pragma once

#include "engine/queued_questions.h"
#include "support/fake_host.h"
#include "tessel/convert.h"

namespace tessel::test {

// The host as an add-on sees it.
class ToolHost : public Object {
  public:
    explicit ToolHost(std::map<int, std::string> names) : names_(std::move(names)) {}
    Value Call(std::string_view member, CallKind, Arguments& arguments) override {
        if (member == "Language") return language;
        if (member == "ErrorsFile") return names_.at(host::name_item::workspaceFolder) + "/schema.errors";
        return names_.at(ToInt32(arguments.at(0)));
    }
    std::string language = "en";

  private:
    std::map<int, std::string> names_;
};

// What the user enters in a form.
inline FilledForm Filled(const std::vector<std::pair<std::string, Value>>& entries) {
    auto values = std::make_shared<Collection>();
    for (const auto& [key, value] : entries) values->Add(value, key);
    return {values};
}

}  // namespace tessel::test

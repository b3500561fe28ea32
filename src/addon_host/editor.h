#pragma once

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

#include "lines/json_values.h"

namespace tessel {

// The editor as an add-on's process reaches it: calls go there as lines, and its objects have stand-ins here.
class Editor : public ObjectsInLines, public std::enable_shared_from_this<Editor> {
  public:
    // Sends a line (without its end) and returns the line that answers it.
    using Exchange = std::function<std::string(const std::string& line)>;

    // Stand-ins keep the editor alive, so it is made shared.
    [[nodiscard]] static std::shared_ptr<Editor> Make(Exchange exchange);

    // Calls the member of an object there: `on` is its name or handle, null for the workspace. As
    // Object::Call otherwise; what the member throws there is thrown here with its kind. May be called from
    // any thread.
    Value Call(const Json& on, std::string_view member, CallKind kind, Arguments& arguments);

    // The stand-in for an object there that goes by a name.
    [[nodiscard]] std::shared_ptr<Object> Named(const std::string& name);

    // A stand-in becomes its handle, a combo box a request to fill it. Other objects live in this process
    // only: they throw ErrorKind::Argument.
    Json ToJson(const std::shared_ptr<Object>& object) override;
    // The same handle gives the same stand-in while that is in use.
    std::shared_ptr<Object> FromJson(const Json& json) override;

  private:
    explicit Editor(Exchange exchange) : exchange_(std::move(exchange)) {}
    [[nodiscard]] Json LineFor(const Json& on, std::string_view member, CallKind kind,
                               const Arguments& arguments);
    void HandBack(const Json& answered, Arguments& arguments);

    std::mutex oneCall_;
    Exchange exchange_;
    std::map<int, std::weak_ptr<Object>> standIns_;  // by handle
};

}  // namespace tessel

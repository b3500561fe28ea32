#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <iostream>
#include <string>

#include "tessel/add_on.h"
#include "tessel/convert.h"
#include "tessel/error.h"

namespace {

using namespace tessel;

using Work = Value (*)(const std::shared_ptr<Object>&, const std::shared_ptr<VNTWS>&, const std::string&);

template <Work work>
class Tool : public AddOn {
    Value Run(const std::shared_ptr<Object>& frontend, const std::shared_ptr<VNTWS>& workspace,
              const std::string& parameter) override {
        return work(frontend, workspace, parameter);
    }
};

Value Call(const std::shared_ptr<Object>& object, std::string_view member, Arguments arguments = {}) {
    return object->Call(member, CallKind::Method, arguments);
}

// Prints what would be a result, and reads an input that is empty.
Value Chatter(const std::shared_ptr<Object>&, const std::shared_ptr<VNTWS>&, const std::string& parameter) {
    std::cout << "{\"result\":\"forged\"}" << std::endl;
    (void)!write(STDOUT_FILENO, "{\"result\":1}\n", 13);
    std::string line;
    return parameter + (std::getline(std::cin, line) ? " and input" : " and no input");
}

// Asks the host, the workspace and an object that it passes back.
Value Ask(const std::shared_ptr<Object>& frontend, const std::shared_ptr<VNTWS>& workspace,
          const std::string&) {
    const auto project = Call(frontend, "ProjectObject");
    const std::string language = ToText(Call(frontend, "Language"));
    const std::string tool = workspace->ToolID();
    return language + "|" + tool + "|" + ToText(Call(frontend, "Echo", {project}));
}

Value FailedCall(const std::shared_ptr<Object>&, const std::shared_ptr<VNTWS>& workspace,
                 const std::string&) {
    try {
        workspace->Verify();
    } catch (const Error& error) {
        return std::string(KindName(error.Kind())) + ": " + error.what();
    }
    return "no error";
}

Value Throw(const std::shared_ptr<Object>&, const std::shared_ptr<VNTWS>&, const std::string& parameter) {
    if (parameter == "number") throw 7;
    throw std::runtime_error("it \"went\" wrong\nin two lines");
}

Value Crash(const std::shared_ptr<Object>&, const std::shared_ptr<VNTWS>&, const std::string&) {
    return Value(std::raise(SIGKILL));
}

Value Exit(const std::shared_ptr<Object>&, const std::shared_ptr<VNTWS>&, const std::string&) {
    std::exit(EXIT_SUCCESS);
}

Value Hang(const std::shared_ptr<Object>&, const std::shared_ptr<VNTWS>&, const std::string&) {
    std::cerr << "hanging" << std::endl;
    for (;;) pause();
}

Value OwnObject(const std::shared_ptr<Object>&, const std::shared_ptr<VNTWS>&, const std::string&) {
    return MakeObject<Tool<Chatter>>();
}

}  // namespace

TESSEL_COMPONENT({"Test.Chatter", MakeObject<Tool<Chatter>>}, {"Test.Ask", MakeObject<Tool<Ask>>},
                 {"Test.FailedCall", MakeObject<Tool<FailedCall>>}, {"Test.Throw", MakeObject<Tool<Throw>>},
                 {"Test.Crash", MakeObject<Tool<Crash>>}, {"Test.Hang", MakeObject<Tool<Hang>>},
                 {"Test.OwnObject", MakeObject<Tool<OwnObject>>}, {"Test.Exit", MakeObject<Tool<Exit>>})

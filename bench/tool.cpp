// The add-on whose calls bench_add_on measures. With a number as its parameter it makes so many small calls;
// with a query it reads the rows and returns how many there are.

#include <stdexcept>

#include "tessel/add_on.h"

namespace {

using namespace tessel;

class Caller : public AddOn {
    Value Run(const std::shared_ptr<Object>& /*frontend*/, const std::shared_ptr<VNTWS>& workspace,
              const std::string& parameter) override {
        if (parameter.starts_with("select")) {
            Arguments sql{parameter};
            const Value rows = workspace->ProjectDB()->Call("Select", CallKind::Method, sql);
            return static_cast<std::int32_t>((*rows.As<std::shared_ptr<Collection>>())->Count());
        }
        for (int left = std::stoi(parameter); left > 0; --left)
            if (workspace->MethodID() != "Bench.Caller") throw std::runtime_error("Another tool is running.");
        return Null{};
    }
};

}  // namespace

TESSEL_COMPONENT({"Bench.Caller", tessel::MakeObject<Caller>})

#pragma once

#include <string>
#include <vector>

#include "host/generator.h"
#include "tessel/convert.h"
#include "tessel/error.h"

namespace tessel::test {

// A generator that writes down what it is asked for, progress included.
class FakeGenerator : public host::Generator {
  public:
    explicit FakeGenerator(std::string folder) : outputFolder(std::move(folder)) {}

    std::string OutputFolder() override { return outputFolder; }
    std::string Heading(const std::string& text) override { return "<h1>" + text + "</h1>"; }
    std::string DiagramFragment(const std::string& diagramFile, const std::string& pageName) override {
        if (fails) throw Error(ErrorKind::Host, "no diagram");
        diagrams.push_back(diagramFile);
        return "<!-- the diagram of " + pageName + " -->";
    }
    void WriteLog(const std::string& line) override { log.push_back(line); }
    Value Call(std::string_view member, CallKind, Arguments& arguments) override {
        std::string call(member);
        for (const auto& argument : arguments) call += " " + ToText(argument);
        progress.push_back(call);
        return Null{};
    }

    std::string outputFolder;
    bool fails = false;
    std::vector<std::string> diagrams;
    std::vector<std::string> log;
    std::vector<std::string> progress;
};

class FakePage : public host::PageOptions {
  public:
    std::string Attribute(const std::string& name) const override {
        return name == "NAME" ? "DBSchema" : "The " + name;
    }
    Value Call(std::string_view, CallKind, Arguments&) override { throw Error(ErrorKind::Member, "none"); }
};

}  // namespace tessel::test

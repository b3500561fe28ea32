#pragma once

#include <functional>
#include <string>

#include "host/generator.h"
#include "platform/diagram/diagram.h"

namespace tessel::workbench {

// What one page of the generator is called.
class GeneratorPage : public host::PageOptions {
  public:
    GeneratorPage(std::string name, std::string caption)
        : name_(std::move(name)), caption_(std::move(caption)) {}

    [[nodiscard]] std::string Attribute(const std::string& name) const override;  // NAME, CAPTION
    Value Call(std::string_view member, CallKind kind, Arguments& arguments) override;

  private:
    std::string name_;
    std::string caption_;
};

// The documentation generator of a program with no workbench around it: pages in folders of one output
// folder, with a style sheet and an index beside them.
class StandAloneGenerator : public host::Generator {
  public:
    struct Settings {
        std::string outputFolder;                   // need not be there
        std::string share;                          // of the installation; holds report/Decor.css
        std::string title;                          // of the index
        std::string language;                       // of the pages' headings, such as "ja"
        std::function<diagram::Diagram()> drawing;  // the boxes and links of a diagram, without places
        std::function<void(const std::string&)> log = [](const std::string&) {};
    };

    explicit StandAloneGenerator(Settings settings) : settings_(std::move(settings)) {}

    // Makes the folder and puts the style sheet into it, unless they are there.
    [[nodiscard]] std::string OutputFolder() override;
    // With what a browser must know of the page: its character set, language and title.
    [[nodiscard]] std::string Heading(const std::string& text) override;
    // An SVG, with the places of the diagram file; boxes are placed automatically where there is no such
    // file, or, after a line in the log, where it cannot be read.
    [[nodiscard]] std::string DiagramFragment(const std::string& diagramFile,
                                              const std::string& pageName) override;
    void WriteLog(const std::string& line) override { settings_.log(line); }

    // Writes index.html, with a link to every page in the output folder. A file of that name that no
    // generator like this one wrote stays as it is, and the log says so.
    void WriteIndex();

    // The members of host::Generator, and the progress calls, which show nothing.
    Value Call(std::string_view member, CallKind kind, Arguments& arguments) override;

  private:
    void StartProgress(const std::string&, std::int32_t) {}
    void StartStep(const std::string&) {}
    void FinishStep(std::int32_t) {}
    void FinishProgress() {}

    [[nodiscard]] std::string Head(const std::string& title) const;

    Settings settings_;
};

}  // namespace tessel::workbench

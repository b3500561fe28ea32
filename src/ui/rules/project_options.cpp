#include "ui/rules/project_options.h"

#include "schema/option_text.h"

namespace tessel {

bool ImportAtStart(host::Frontend& frontend) {
    const auto tree = frontend.ProjectOptions();
    const auto option =
        tree->Document().SelectSingleNode(std::string(optionCase) + "//BOOL[@NAME='ImportAtStart']");
    return !option || IsOn(option.Attribute("VALUE").value_or(""));
}

}  // namespace tessel

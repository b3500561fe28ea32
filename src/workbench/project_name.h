#pragma once

#include <string_view>

namespace tessel::workbench {

// Throws ErrorKind::Argument, saying why, when a project cannot bear this name: it names folders and files,
// on other systems too.
void CheckProjectName(std::string_view name);

}  // namespace tessel::workbench

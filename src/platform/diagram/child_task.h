#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/diagram/diagram.h"

namespace tessel::diagram {

// Does the task in a process of its own and returns its result. Nothing when the process died, whatever of,
// or `keepOn`, asked about 20 times a second, said no. The task changes nothing here, and must not show
// anything.
[[nodiscard]] std::optional<std::string> RunInChild(const std::function<std::string()>& task,
                                                    const KeepOn& keepOn);

}  // namespace tessel::diagram

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tessel/vntws.h"

namespace tessel::layout {

// The rows of a query of the schema database, each under its fields' names.
[[nodiscard]] std::vector<std::shared_ptr<Collection>> SelectRows(VNTWS& workspace, const std::string& sql);
[[nodiscard]] std::string TextOf(const Collection& row, const char* field);
[[nodiscard]] std::int32_t NumberOf(const Collection& row, const char* field);  // 0 for Null

// A property of the host; empty where the host has none of this name.
[[nodiscard]] std::string HostProperty(Object& frontend, const char* name);
[[nodiscard]] std::string WorkspaceFolder(Object& frontend);

// Shows a form: the values by field, or none when the user cancelled.
[[nodiscard]] std::shared_ptr<Collection> ShowForm(VNTWS& workspace, const std::shared_ptr<Collection>& form);
void ShowWarning(VNTWS& workspace, const std::string& text);

}  // namespace tessel::layout

#include "workbench/source_text.h"

#include "platform/files/file_service.h"

namespace tessel::workbench {

SourceText::SourceText(const std::string& path) : text_(files::ReadFile(path)) {}

}  // namespace tessel::workbench

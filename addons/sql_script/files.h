#pragma once

#include <string>
#include <string_view>

#include "sql_script/texts.h"
#include "tessel/error.h"

// Whole files, by paths of the system. Failures throw ErrorKind::File, saying the path and the reason.
namespace tessel::sql_script {

class WriteError : public Error {
  public:
    using Error::Error;
};

[[nodiscard]] std::string ReadFile(const std::string& path, Language language);

// Gives the file this content, and makes its folder where that alone is missing. A crash or a full disk
// leaves the old content or the whole new one, on the disk before this returns. Throws WriteError.
void ReplaceFile(const std::string& path, std::string_view content, Language language);

}  // namespace tessel::sql_script

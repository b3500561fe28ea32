#pragma once

#include <filesystem>
#include <string>

#include "support/temporary_folder.h"

namespace tessel::fuzz {

// A schema database of its own, made from the template.
class TemplateCopy {
  public:
    TemplateCopy() { std::filesystem::copy_file(std::string(TESSEL_SHARE) + "/DBSchema.mdb", Path()); }
    [[nodiscard]] std::string Path() const { return folder_ / "Schema.mdb"; }

  private:
    TemporaryFolder folder_;
};

}  // namespace tessel::fuzz

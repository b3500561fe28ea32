#pragma once

#include <string>

#include "host/frontend.h"

namespace tessel::workbench {

// The text of a source file, whole in memory.
class SourceText : public host::OriginSource {
  public:
    // Throws ErrorKind::File when the file cannot be read.
    explicit SourceText(const std::string& path);

    [[nodiscard]] const std::string& Text() const { return text_; }  // empty once closed
    void Close() override { text_.clear(); }

  private:
    std::string text_;
};

}  // namespace tessel::workbench

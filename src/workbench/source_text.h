#pragma once

#include <string>

#include "host/frontend.h"

namespace tessel::workbench {

// The text of a source file, whole in memory.
class SourceText : public host::OriginSource {
  public:
    // Throws ErrorKind::File when the file cannot be read.
    explicit SourceText(const std::string& path);

    [[nodiscard]] std::string Text() const override { return text_; }
    void Close() override { text_.clear(); }

  private:
    std::string text_;
};

}  // namespace tessel::workbench

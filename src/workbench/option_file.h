#pragma once

#include <functional>
#include <optional>
#include <string>

#include "host/frontend.h"
#include "workbench/file_stamp.h"

namespace tessel::workbench {

// A tree of options in a file of its own, which is read anew when it changed.
class OptionFile : public host::Options {
  public:
    // `whenMissing` gives the tree that stands for a file that is not there; without it, reading such a file
    // throws ErrorKind::File.
    explicit OptionFile(std::string path, std::function<xml::Document()> whenMissing = nullptr);

    // Throws ErrorKind::Xml, saying the file, when that is damaged.
    [[nodiscard]] const xml::Document& Document() override;
    // Makes the file, and its folder, when they are not there.
    void Save(const xml::Document& document) override;

  private:
    [[nodiscard]] bool IsMissing() const;

    std::string path_;
    std::function<xml::Document()> whenMissing_;
    xml::Document document_;
    std::optional<FileStamp> stamp_;  // of the file that document_ was read from, zero for none
};

}  // namespace tessel::workbench

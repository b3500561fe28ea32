#include "workbench/option_file.h"

#include "platform/files/file_service.h"

namespace tessel::workbench {

OptionFile::OptionFile(std::string path, std::function<xml::Document()> whenMissing)
    : path_(std::move(path)), whenMissing_(std::move(whenMissing)) {}

bool OptionFile::IsMissing() const { return whenMissing_ && !files::FileExists(path_); }

const xml::Document& OptionFile::Document() {
    const bool missing = IsMissing();
    const FileStamp stamp = missing ? FileStamp{} : StampOf(path_);
    if (stamp_ != stamp) {
        document_ = missing ? whenMissing_() : xml::Document::Load(path_);
        stamp_ = stamp;
    }
    return document_;
}

void OptionFile::Save(const xml::Document& document) {
    files::CreateFolder(files::SplitPath(path_).folder);
    document.Save(path_);
}

}  // namespace tessel::workbench

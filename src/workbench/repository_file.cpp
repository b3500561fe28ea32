#include "workbench/repository_file.h"

#include "platform/files/file_lock.h"
#include "platform/files/file_service.h"

namespace tessel::workbench {

RepositoryFile::RepositoryFile(std::string path) : path_(std::move(path)) { Read(); }

const RepositoryContents& RepositoryFile::Contents() {
    if (!contents_) Read();
    return *contents_;
}

const RepositoryContents& RepositoryFile::PresentContents() {
    if (StampOf(path_) != stamp_) contents_.reset();
    return Contents();
}

void RepositoryFile::Change(const std::function<void(RepositoryContents&)>& change,
                            const std::function<void()>& keep) {
    const files::FileLock lock(files::SplitPath(path_).folder + "/.workspace.lock");
    (void)PresentContents();
    try {
        change(*contents_);
        files::Replacement changed(path_, contents_->Text());
        keep();
        changed.TakePlace();
    } catch (...) {
        contents_.reset();
        throw;
    }
    stamp_ = StampOf(path_);
}

void RepositoryFile::Read() {
    // Taken first: when the file is replaced in between, the old stamp makes the next look read it anew.
    stamp_ = StampOf(path_);
    contents_ = RepositoryContents::Load(path_);
}

}  // namespace tessel::workbench

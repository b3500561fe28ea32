#include "workbench/repository_file.h"

#include <sys/stat.h>

#include <cerrno>

#include "platform/files/file_error.h"
#include "platform/files/file_service.h"
#include "workbench/file_lock.h"

namespace tessel::workbench {

RepositoryFile::RepositoryFile(std::string path) : path_(std::move(path)) { Read(); }

const RepositoryContents& RepositoryFile::Contents() {
    if (!contents_) Read();
    return *contents_;
}

const RepositoryContents& RepositoryFile::PresentContents() {
    if (StampOnDisk() != stamp_) contents_.reset();
    return Contents();
}

void RepositoryFile::Change(const std::function<void(RepositoryContents&)>& change) {
    const FileLock lock(files::SplitPath(path_).folder + "/.workspace.lock");
    (void)PresentContents();
    try {
        change(*contents_);
        contents_->Save(path_);
    } catch (...) {
        contents_.reset();
        throw;
    }
    stamp_ = StampOnDisk();
}

RepositoryFile::Stamp RepositoryFile::StampOnDisk() const {
    struct stat status {};
    if (stat(path_.c_str(), &status) != 0) files::ThrowReadError("file", path_, "read", errno);
    return {status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

void RepositoryFile::Read() {
    // Taken first: when the file is replaced in between, the old stamp makes the next look read it anew.
    stamp_ = StampOnDisk();
    contents_ = RepositoryContents::Load(path_);
}

}  // namespace tessel::workbench

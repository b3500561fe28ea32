#include "report/page_file.h"

#include <fcntl.h>

#include <cerrno>

#include "platform/files/file_error.h"
#include "platform/files/file_service.h"

namespace tessel {

namespace {

constexpr std::size_t pieceSize = 1 << 18;

}  // namespace

PageFile::PageFile(std::string_view path)
    : path_(files::NativePath(path)),
      file_(open(path_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666)) {
    if (!file_.IsOpen()) Fail(errno);
    pending_.reserve(pieceSize);
}

PageFile::~PageFile() {
    if (file_.IsOpen()) (void)file_.WriteAll(pending_);
}

void PageFile::Line(std::string_view text) {
    Put(text);
    Put("\r\n");
}

void PageFile::Put(std::string_view text) {
    if (pending_.size() + text.size() > pieceSize) Flush();
    if (text.size() < pieceSize)
        pending_ += text;
    else if (!file_.WriteAll(text))
        Fail(errno);
}

void PageFile::Close() {
    Flush();
    if (!file_.Close()) Fail(errno);
}

void PageFile::Flush() {
    const bool written = file_.WriteAll(pending_);
    const int cause = errno;
    pending_.clear();
    if (!written) Fail(cause);
}

void PageFile::Fail(int cause) const { files::ThrowWriteError("page", path_, "written", cause); }

}  // namespace tessel

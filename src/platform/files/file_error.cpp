#include "platform/files/file_error.h"

#include <cerrno>
#include <system_error>

#include "tessel/error.h"

namespace tessel::files {
namespace {

std::string Sentence(std::string_view thing, const std::string& path, std::string_view action, int cause) {
    return "The " + std::string(thing) + " " + path + " cannot be " + std::string(action) + ": " +
           std::generic_category().message(cause) + ".";
}

ErrorKind KindOfWriteError(int cause) {
    switch (cause) {
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return ErrorKind::Full;
        case EROFS:
        case EACCES:
        case EPERM:
            return ErrorKind::ReadOnly;
        default:
            return ErrorKind::File;
    }
}

}  // namespace

void ThrowReadError(std::string_view thing, const std::string& path, std::string_view action, int cause) {
    throw Error(ErrorKind::File, Sentence(thing, path, action, cause));
}

void ThrowWriteError(std::string_view thing, const std::string& path, std::string_view action, int cause) {
    throw Error(KindOfWriteError(cause), Sentence(thing, path, action, cause));
}

}  // namespace tessel::files

#include "platform/db/engine_error.h"

#include <sqlite3.h>

#include <array>
#include <utility>

namespace tessel::db {
namespace {

constexpr std::array<std::pair<int, ErrorKind>, 10> kindsByCode{{
    {SQLITE_BUSY, ErrorKind::Busy},
    {SQLITE_LOCKED, ErrorKind::Busy},
    {SQLITE_CONSTRAINT, ErrorKind::Constraint},
    {SQLITE_CORRUPT, ErrorKind::Damaged},
    {SQLITE_NOTADB, ErrorKind::NotADatabase},
    {SQLITE_READONLY, ErrorKind::ReadOnly},
    {SQLITE_PERM, ErrorKind::ReadOnly},
    {SQLITE_FULL, ErrorKind::Full},
    {SQLITE_IOERR, ErrorKind::Io},
    {SQLITE_CANTOPEN, ErrorKind::ReadOnly},
}};

constexpr std::array<std::pair<ErrorKind, std::string_view>, 5> adviceByKind{{
    {ErrorKind::Busy, "another program is using it, so try again when that program is done"},
    {ErrorKind::Damaged, "restore it from a backup"},
    {ErrorKind::ReadOnly, "make the file and its folder writable"},
    {ErrorKind::Full, "make room on the device and try again"},
    {ErrorKind::Io, "check the device that holds it"},
}};

// A database in memory bears the name of its file.
std::string FileNameOf(sqlite3* connection) {
    const std::string file = sqlite3_db_filename(connection, "main");
    return file.empty() ? sqlite3_db_name(connection, 0) : file;
}

}  // namespace

ErrorKind KindOfCode(int code) {
    constexpr int primaryCode = 0xff;
    for (const auto& [value, kind] : kindsByCode)
        if (value == (code & primaryCode)) return kind;
    return ErrorKind::Sql;
}

std::string_view AdviceFor(ErrorKind kind) {
    for (const auto& [value, advice] : adviceByKind)
        if (value == kind) return advice;
    return {};
}

bool HasMoved(sqlite3* connection) {
    int hasMoved = 0;
    sqlite3_file_control(connection, "main", SQLITE_FCNTL_HAS_MOVED, &hasMoved);
    return hasMoved != 0;
}

void ThrowOpenError(sqlite3* connection, const std::string& path, std::string_view advice) {
    throw DatabaseError(KindOfCode(sqlite3_extended_errcode(connection)),
                        "The database \"" + path + "\" cannot be opened: " + sqlite3_errmsg(connection) +
                            "; " + std::string(advice) + ".");
}

void ThrowLastError(sqlite3* connection, std::string_view sql) {
    const ErrorKind kind = KindOfCode(sqlite3_extended_errcode(connection));
    const std::string_view advice = AdviceFor(kind);
    std::string message = "The database \"" + FileNameOf(connection) + "\" ";
    if ((kind == ErrorKind::ReadOnly || kind == ErrorKind::Io) && HasMoved(connection))
        throw DatabaseError(ErrorKind::Missing,
                            message + "is no longer there, or another file has taken its place; put it back.",
                            std::string(sql));
    message += "failed with: ";
    message += sqlite3_errmsg(connection);
    if (!advice.empty()) message.append("; ").append(advice);
    throw DatabaseError(kind, message + ".", std::string(sql));
}

}  // namespace tessel::db

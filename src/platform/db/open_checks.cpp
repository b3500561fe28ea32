#include "platform/db/open_checks.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <string_view>

#include "platform/db/engine_error.h"
#include "platform/db/statement.h"
#include "tessel/convert.h"

namespace tessel::db {
namespace {

constexpr std::uint32_t applicationId = 0x5453534C;
constexpr std::uint32_t currentVersion = 1;

// The parts of the file's header that tell what it is.
constexpr std::size_t headerSize = 100;
constexpr std::size_t versionAt = 60;
constexpr std::size_t applicationIdAt = 68;
constexpr std::string_view fileMark{"SQLite format 3\0", 16};
constexpr std::string_view jetMark = "Standard Jet DB";
constexpr std::size_t jetMarkAt = 4;

[[noreturn]] void Refuse(ErrorKind kind, const std::string& path, std::string_view reason) {
    throw DatabaseError(kind, "The database \"" + path + "\" cannot be opened: " + std::string(reason) + ".");
}

// The engine's own handle: closing another one would give up the locks that this process holds on the file.
sqlite3_file* FileOf(sqlite3* connection) {
    sqlite3_file* file = nullptr;
    sqlite3_file_control(connection, "main", SQLITE_FCNTL_FILE_POINTER, &file);
    return file;
}

sqlite3_int64 FileSize(sqlite3* connection, const std::string& path) {
    sqlite3_file* const file = FileOf(connection);
    sqlite3_int64 size = 0;
    if (!file || file->pMethods->xFileSize(file, &size) != SQLITE_OK)
        Refuse(ErrorKind::Io, path, "it cannot be read");
    return size;
}

// The first bytes of the file, as many as there are.
std::string ReadStart(sqlite3* connection, const std::string& path, sqlite3_int64 most) {
    const sqlite3_int64 size = std::min(FileSize(connection, path), most);
    sqlite3_file* const file = FileOf(connection);
    std::string content(static_cast<std::size_t>(size), '\0');
    if (file->pMethods->xRead(file, content.data(), static_cast<int>(size), 0) != SQLITE_OK)
        Refuse(ErrorKind::Io, path, "it cannot be read");
    return content;
}

std::uint32_t NumberAt(const std::string& header, std::size_t offset) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < 4; ++i) number = number << 8 | static_cast<unsigned char>(header[offset + i]);
    return number;
}

// The first field of the first row; Null when there is none.
Value Answer(StatementCache& statements, std::string_view sql) {
    Statement statement(statements, sql, sql);
    return statement.Step() ? statement.Field(0) : Null();
}

// The engine refuses a file that lacks whole pages, but reads a last page that is cut off as if zeros
// followed.
bool EndsWithinAPage(StatementCache& statements, const std::string& path) {
    return FileSize(statements.Connection(), path) % ToInt32(Answer(statements, "pragma page_size")) != 0;
}

// Whether every table is there, and the two engine indexes that rows are sought by.
bool HasParts(StatementCache& statements) {
    return Answer(statements,
                  "select count(*) from sqlite_schema where type in ('table','index') and "
                  "(tbl_name || '.' || name) collate nocase in ("
                  "'Tables.Tables','Columns.Columns','Indices.Indices','IndexColumns.IndexColumns',"
                  "'ForeignKeys.ForeignKeys','ForeignKeyColumns.ForeignKeyColumns','SQLTypes.SQLTypes',"
                  "'ProjectSettings.ProjectSettings','Errors.Errors',"
                  "'Tables.TableName','Columns.TableIDColName')") == Value(11);
}

[[noreturn]] void RefuseUnwritableFile(ErrorKind kind, const std::string& path, sqlite3* connection) {
    if (kind == ErrorKind::ReadOnly)
        Refuse(kind, path, "the file or its folder is read-only; " + std::string(AdviceFor(kind)));
    Refuse(kind, path, std::string(sqlite3_errmsg(connection)) + "; " + std::string(AdviceFor(kind)));
}

}  // namespace

std::string ReadWholeFile(sqlite3* connection, const std::string& path) {
    return ReadStart(connection, path, std::numeric_limits<int>::max());
}

void RefuseMissingFile(const std::string& path) {
    std::error_code error;
    if (std::filesystem::is_directory(path, error)) Refuse(ErrorKind::NotADatabase, path, "it is a folder");
    if (!std::filesystem::exists(path, error) && !error)
        Refuse(ErrorKind::Missing, path,
               "there is no such file; check the path, or restore the file from a backup");
}

void RefuseForeignHeader(sqlite3* connection, const std::string& path) {
    const std::string header = ReadStart(connection, path, headerSize);
    if (header.empty()) Refuse(ErrorKind::Empty, path, "the file is empty; restore it from a backup");
    if (header.size() > jetMarkAt && header.substr(jetMarkAt).starts_with(jetMark))
        Refuse(ErrorKind::Jet, path,
               "it is in the Jet engine's format, which cannot be read; make the schema anew");
    if (!header.starts_with(fileMark))
        Refuse(ErrorKind::NotADatabase, path, "the file is no database; choose another");
    if (header.size() < headerSize)
        Refuse(ErrorKind::Damaged, path, "the file is cut off; restore it from a backup");
    if (NumberAt(header, applicationIdAt) != applicationId)
        Refuse(ErrorKind::Foreign, path, "it is a database, but not a schema database; choose another");
    if (NumberAt(header, versionAt) > currentVersion)
        Refuse(ErrorKind::Newer, path, "a newer version of this program wrote it; update the program");
}

void RefuseDamagedContent(sqlite3* connection, const std::string& path) {
    StatementCache statements(connection);
    // Within one transaction a journal has been played back, and no other process changes the file.
    Answer(statements, "begin");
    if (Answer(statements, "pragma quick_check(1)") != Value("ok") || EndsWithinAPage(statements, path))
        Refuse(ErrorKind::Damaged, path, "the file is damaged; restore it from a backup");
    if (!HasParts(statements))
        Refuse(ErrorKind::Foreign, path,
               "it lacks tables or indexes of a schema database; restore it from a backup");
    Answer(statements, "commit");
}

void RefuseUnwritable(sqlite3* connection, const std::string& path) {
    // Storing the version that is there already needs the file, its folder and the lock, and changes nothing.
    static constexpr std::array<const char*, 3> probe{"begin immediate", "pragma user_version=1", "rollback"};
    for (const char* const step : probe) {
        if (sqlite3_exec(connection, step, nullptr, nullptr, nullptr) == SQLITE_OK) continue;
        RefuseUnwritableFile(KindOfCode(sqlite3_extended_errcode(connection)), path, connection);
    }
}

}  // namespace tessel::db

#include "platform/db/open_checks.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <string_view>

#include "platform/component/convert.h"
#include "platform/db/engine_error.h"
#include "platform/db/statement.h"

namespace tessel::db {
namespace {

constexpr std::uint32_t kApplicationId = 0x5453534C;
constexpr std::uint32_t kVersion = 1;

// The parts of the file's header that tell what it is.
constexpr std::size_t kHeaderSize = 100;
constexpr std::size_t kVersionAt = 60;
constexpr std::size_t kApplicationIdAt = 68;
constexpr std::string_view kMark{"SQLite format 3\0", 16};
constexpr std::string_view kJetMark = "Standard Jet DB";
constexpr std::size_t kJetMarkAt = 4;

[[noreturn]] void Refuse(ErrorKind kind, const std::string& path, std::string_view reason) {
    throw DatabaseError(kind, "The database \"" + path + "\" cannot be opened: " + std::string(reason) + ".");
}

// Read through the engine's own handle: closing another one would give up the locks that this process holds
// on the file.
std::string ReadHeader(sqlite3* connection, const std::string& path) {
    sqlite3_file* file = nullptr;
    sqlite3_file_control(connection, "main", SQLITE_FCNTL_FILE_POINTER, &file);
    sqlite3_int64 size = 0;
    std::string header(kHeaderSize, '\0');
    if (!file || file->pMethods->xFileSize(file, &size) != SQLITE_OK)
        Refuse(ErrorKind::Io, path, "it cannot be read");
    const int code = file->pMethods->xRead(file, header.data(), static_cast<int>(kHeaderSize), 0);
    if (code != SQLITE_OK && code != SQLITE_IOERR_SHORT_READ)
        Refuse(ErrorKind::Io, path, "it cannot be read");
    header.resize(static_cast<std::size_t>(std::min<sqlite3_int64>(size, kHeaderSize)));
    return header;
}

std::uint32_t NumberAt(const std::string& header, std::size_t offset) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < 4; ++i) number = number << 8 | static_cast<unsigned char>(header[offset + i]);
    return number;
}

[[noreturn]] void RefuseUnwritableFile(ErrorKind kind, const std::string& path, sqlite3* connection) {
    if (kind == ErrorKind::ReadOnly)
        Refuse(kind, path, "the file or its folder is read-only; " + std::string(AdviceFor(kind)));
    Refuse(kind, path, std::string(sqlite3_errmsg(connection)) + "; " + std::string(AdviceFor(kind)));
}

}  // namespace

void RefuseMissingFile(const std::string& path) {
    std::error_code error;
    if (std::filesystem::is_directory(path, error)) Refuse(ErrorKind::NotADatabase, path, "it is a folder");
    if (!std::filesystem::exists(path, error) && !error)
        Refuse(ErrorKind::Missing, path,
               "there is no such file; check the path, or restore the file from a backup");
}

void RefuseForeignHeader(sqlite3* connection, const std::string& path) {
    const std::string header = ReadHeader(connection, path);
    if (header.empty()) Refuse(ErrorKind::Empty, path, "the file is empty; restore it from a backup");
    if (header.size() > kJetMarkAt && header.substr(kJetMarkAt).starts_with(kJetMark))
        Refuse(ErrorKind::Jet, path,
               "it is in the Jet engine's format, which cannot be read; make the schema anew");
    if (!header.starts_with(kMark))
        Refuse(ErrorKind::NotADatabase, path, "the file is no database; choose another");
    if (header.size() < kHeaderSize)
        Refuse(ErrorKind::Damaged, path, "the file is cut off; restore it from a backup");
    if (NumberAt(header, kApplicationIdAt) != kApplicationId)
        Refuse(ErrorKind::Foreign, path, "it is a database, but not a schema database; choose another");
    if (NumberAt(header, kVersionAt) > kVersion)
        Refuse(ErrorKind::Newer, path, "a newer version of this program wrote it; update the program");
}

void RefuseDamagedContent(sqlite3* connection, const std::string& path) {
    StatementCache statements(connection);
    constexpr std::string_view check = "pragma quick_check(1)";
    Statement checked(statements, check, check);
    if (!checked.Step() || checked.Field(0) != Value("ok"))
        Refuse(ErrorKind::Damaged, path, "the file is damaged; restore it from a backup");
    constexpr std::string_view tables =
        "select count(*) from sqlite_schema where type='table' and name collate nocase in "
        "('Tables','Columns',"
        "'Indices','IndexColumns','ForeignKeys','ForeignKeyColumns','SQLTypes','ProjectSettings','Errors')";
    Statement counted(statements, tables, tables);
    if (!counted.Step() || counted.Field(0) != Value(9))
        Refuse(ErrorKind::Foreign, path, "it lacks tables of a schema database; restore it from a backup");
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

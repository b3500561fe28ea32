#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tessel {

// What kind of thing went wrong; KindName gives the word that `tessel call` answers with.
enum class ErrorKind {
    Argument,      // a call's arguments do not fit the member
    Member,        // no such member, or not in this way
    Conversion,    // a value does not convert to the type asked for
    Component,     // no such class, or its library does not load
    Collection,    // no such item, or its key is taken
    JsonLine,      // a line is no call
    Answer,        // an answer does not fit the question asked
    File,          // a file or folder cannot be read, made or written
    Xml,           // a document does not parse, or lacks what is asked of it
    Host,          // the host cannot give what is asked of it
    Sql,           // a statement does not parse or names what is not there
    Constraint,    // a row breaks a rule of its table
    Missing,       // database file: not there
    Empty,         // database file: no bytes in it
    NotADatabase,  // database file: something else
    Jet,           // database file: in the Jet engine's own format
    Damaged,       // database file: truncated or corrupt
    Foreign,       // database file: a database, but not a schema database
    Newer,         // database file: written by a newer version
    ReadOnly,      // database file or its folder: not writable
    Busy,          // database file: held by another process
    Full,          // no room left on the device
    Io,            // the device failed
};

[[nodiscard]] std::string_view KindName(ErrorKind kind);
// The kind that has this name; nothing when none has.
[[nodiscard]] std::optional<ErrorKind> KindNamed(std::string_view name);

// The one type that is thrown. what() is one English sentence that says what went wrong and where.
class Error : public std::runtime_error {
  public:
    Error(ErrorKind kind, const std::string& message) : std::runtime_error(message), kind_(kind) {}

    [[nodiscard]] ErrorKind Kind() const { return kind_; }

  private:
    ErrorKind kind_;
};

}  // namespace tessel

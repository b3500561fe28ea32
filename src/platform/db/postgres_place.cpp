#include "platform/db/postgres_place.h"

#include <libpq-fe.h>

#include <memory>
#include <string_view>

#include "platform/db/error.h"

namespace tessel::db {
namespace {

constexpr std::string_view blanks = " \t\n\r\f\v";
constexpr std::string_view schemaKeyword = "schema";
// libpq knows no keyword for a schema. Under the name of one that means nothing yet, its value goes through
// libpq's own rules of quoting.
constexpr std::string_view carrier = "fallback_application_name";

bool IsUri(std::string_view connection) {
    return connection.starts_with("postgresql://") || connection.starts_with("postgres://");
}

[[noreturn]] void Refuse(const std::string& advice) {
    throw DatabaseError(ErrorKind::Argument, "The connection to PostgreSQL cannot be read; " + advice + ".");
}

// The keywords of "keyword=value keyword='value'", one after the other.
class Keywords {
  public:
    explicit Keywords(std::string_view text) : text_(text) {}

    // The next keyword's place; npos at the end, and where the text does not go on as it should.
    std::size_t Next() {
        position_ = text_.find_first_not_of(blanks, position_);
        const std::size_t start = position_;
        position_ = text_.find('=', position_);
        if (position_ == std::string_view::npos) return position_;
        position_ = text_.find_first_not_of(blanks, position_ + 1);
        SkipValue();
        return start;
    }

  private:
    void SkipValue() {
        const bool isQuoted = position_ < text_.size() && text_[position_] == '\'';
        if (isQuoted) ++position_;
        const auto isEnd = [&](char c) {
            return isQuoted ? c == '\'' : blanks.find(c) != std::string_view::npos;
        };
        while (position_ < text_.size() && !isEnd(text_[position_]))
            position_ += text_[position_] == '\\' ? 2 : 1;
        if (position_ >= text_.size())
            position_ = std::string_view::npos;
        else if (isQuoted)
            ++position_;
    }

    std::string_view text_;
    std::size_t position_ = 0;
};

bool IsSchemaAt(std::string_view text, std::size_t place) {
    const std::string_view rest = text.substr(place);
    if (!rest.starts_with(schemaKeyword)) return false;
    const auto next = rest.find_first_not_of(blanks, schemaKeyword.size());
    return next != std::string_view::npos && rest[next] == '=';
}

// Where the keyword "schema" stands; npos where there is none.
std::size_t FindSchema(std::string_view connection) {
    if (IsUri(connection)) {
        auto place = connection.find('?');
        while (place != std::string_view::npos && !IsSchemaAt(connection, place + 1))
            place = connection.find('&', place + 1);
        return place == std::string_view::npos ? place : place + 1;
    }
    Keywords keywords(connection);
    std::size_t place = keywords.Next();
    while (place != std::string_view::npos && !IsSchemaAt(connection, place)) place = keywords.Next();
    return place;
}

// A password that is not written as a URI wants it would be taken for a part of the host, and be shown.
void RefuseLoosePassword(std::string_view uri) {
    const auto end = uri.find_first_of("@/", uri.find("//") + 2);
    if (end != std::string_view::npos && uri.find('@', end + 1) != std::string_view::npos)
        Refuse("in a URI, write @ as %40 and / as %2F");
}

void CheckPort(std::string_view ports) {
    if (ports.find_first_not_of("0123456789,") != std::string_view::npos)
        Refuse("its port is no number (in a URI, write / of a password as %2F)");
}

void Take(PostgresPlace& place, std::string_view keyword, const std::string& value) {
    if (keyword == "port") CheckPort(value);
    if (keyword == carrier)
        place.schema = value;
    else
        place.options.emplace_back(keyword, value);
}

}  // namespace

PostgresPlace ReadPostgresPlace(const std::string& connection) {
    if (IsUri(connection)) RefuseLoosePassword(connection);
    std::string known = connection;
    const auto schema = FindSchema(connection);
    if (schema != std::string::npos) known.replace(schema, schemaKeyword.size(), carrier);
    const std::unique_ptr<PQconninfoOption, void (*)(PQconninfoOption*)> parsed(
        PQconninfoParse(known.c_str(), nullptr), PQconninfoFree);
    if (!parsed)
        Refuse(
            "write it as host=NAME dbname=NAME, a value with blanks between single quotes, or as "
            "postgresql://USER@HOST/DATABASE");
    PostgresPlace place;
    for (const auto* option = parsed.get(); option->keyword; ++option)
        if (option->val) Take(place, option->keyword, option->val);
    return place;
}

std::string PostgresOption(const std::string& keyword, const std::string& value) {
    if (!value.empty() && value.find_first_of(std::string(blanks) + "'\\") == std::string::npos)
        return keyword + "=" + value;
    std::string quoted = keyword + "='";
    for (const char c : value) {
        if (c == '\'' || c == '\\') quoted += '\\';
        quoted += c;
    }
    return quoted + "'";
}

}  // namespace tessel::db

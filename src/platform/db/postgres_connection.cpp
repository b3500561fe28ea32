#include "platform/db/postgres_connection.h"

#include <libpq-fe.h>
#include <poll.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <new>
#include <optional>
#include <string_view>

#include "platform/db/error.h"
#include "platform/text/utf8.h"

namespace tessel::db {
namespace {

using Clock = std::chrono::steady_clock;

struct Refusal {
    std::string_view states;  // how the SQLSTATE begins
    ErrorKind kind;
    std::string_view advice;
};

constexpr std::string_view checkLogin =
    "check the user and the password, which may also stand in PGPASSWORD or in a password file";

constexpr Refusal refusals[] = {
    {"3D000", ErrorKind::Missing, "check the name of the database"},
    {"28", ErrorKind::Argument, checkLogin},
    {"42501", ErrorKind::Argument, "ask its owner for the right to connect"},
    {"53300", ErrorKind::Busy, "try again when others are done"},
    {"57P03", ErrorKind::Busy, "try again when the server is ready"},
};

// A message of libpq in one line, without the server's SQLSTATE, which is given apart.
struct Message {
    std::string text;
    std::string state{};
};

// Takes the SQLSTATE, which stands as "FATAL:  28P01: " behind a word in any language, out of the line.
void TakeState(std::string& line, std::string& state) {
    constexpr std::size_t length = 5;
    for (auto at = line.find(":  "); at != std::string::npos; at = line.find(":  ", at + 1)) {
        const std::string code = line.substr(at + 3, length);
        if (line.compare(std::min(at + 3 + length, line.size()), 2, ": ") != 0) continue;
        state = code;
        line.erase(at + 2, length + 2);
        return;
    }
}

// Only the lines that say what failed: those with a place in the server's source, and hints, are left out.
Message Told(std::string_view message) {
    Message told{};
    while (!message.empty()) {
        const auto end = std::min(message.find('\n'), message.size());
        std::string line(message.substr(0, end));
        message.remove_prefix(std::min(end + 1, message.size()));
        TakeState(line, told.state);
        const bool isFirst = told.text.empty();
        if (line.empty() || (!isFirst && !line.starts_with("connection to server"))) continue;
        told.text += (isFirst ? "" : "; ") + line;
    }
    return told;
}

[[noreturn]] void ThrowRefusal(ErrorKind kind, const std::string& reason, std::string_view advice) {
    std::string message = "There is no connection to PostgreSQL: " + reason;
    if (!advice.empty()) message.append("; ").append(advice);
    throw DatabaseError(kind, message + ".");
}

[[noreturn]] void ThrowNoConnection(PGconn* connection) {
    const Message told = Told(PQerrorMessage(connection));
    if (PQconnectionNeedsPassword(connection)) ThrowRefusal(ErrorKind::Argument, told.text, checkLogin);
    for (const auto& refusal : refusals)
        if (!told.state.empty() && told.state.starts_with(refusal.states))
            ThrowRefusal(refusal.kind, told.text, refusal.advice);
    ThrowRefusal(ErrorKind::Io, told.text, "check host and port, and that the server is running");
}

std::string OptionOf(PGconn* connection, std::string_view keyword) {
    const std::unique_ptr<PQconninfoOption, void (*)(PQconninfoOption*)> options(PQconninfo(connection),
                                                                                 PQconninfoFree);
    for (const auto* option = options.get(); option && option->keyword; ++option)
        if (option->keyword == keyword) return option->val ? option->val : "";
    return {};
}

// The seconds to wait for the server, at most a day; nothing when there is no end to it.
std::optional<int> SecondsToWait(PGconn* connection) {
    const std::string given = OptionOf(connection, "connect_timeout");
    if (given.empty()) return 10;
    const int seconds = std::atoi(given.c_str());
    return seconds > 0 ? std::optional(std::min(seconds, 24 * 60 * 60)) : std::nullopt;
}

int MillisecondsUntil(Clock::time_point end) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
    return static_cast<int>(std::max<decltype(left)>(left, 0));
}

// False when the time is over.
bool WaitFor(PGconn* connection, PostgresPollingStatusType what, std::optional<Clock::time_point> end) {
    pollfd socket{PQsocket(connection), static_cast<short>(what == PGRES_POLLING_READING ? POLLIN : POLLOUT),
                  0};
    int ready = -1;
    do {
        ready = poll(&socket, 1, end ? MillisecondsUntil(*end) : -1);
    } while (ready < 0 && errno == EINTR);
    return ready != 0;
}

// Goes on with the connection until it stands.
void Complete(PGconn* connection) {
    const auto seconds = SecondsToWait(connection);
    const auto end = seconds ? std::optional(Clock::now() + std::chrono::seconds(*seconds)) : std::nullopt;
    auto state = PGRES_POLLING_WRITING;
    while (PQstatus(connection) != CONNECTION_BAD && state != PGRES_POLLING_OK) {
        if (!WaitFor(connection, state, end))
            ThrowRefusal(ErrorKind::Io,
                         "the server did not answer within " + std::to_string(*seconds) + " seconds",
                         "check host and port, or give it longer by connect_timeout=SECONDS");
        state = PQconnectPoll(connection);
        if (state == PGRES_POLLING_FAILED) break;
    }
    if (PQstatus(connection) != CONNECTION_OK) ThrowNoConnection(connection);
}

PGconn* Start(const PostgresPlace& place) {
    std::vector<const char*> keywords;
    std::vector<const char*> values;
    const auto add = [&](const char* keyword, const char* value) {
        keywords.push_back(keyword);
        values.push_back(value);
    };
    for (const auto& [keyword, value] : place.options) add(keyword.c_str(), value.c_str());
    add("fallback_application_name", "tessel");
    add("client_encoding", "UTF8");
    add(nullptr, nullptr);
    return PQconnectStartParams(keywords.data(), values.data(), 0);
}

ErrorKind KindOfFailure(PGconn* connection, const PGresult* result) {
    if (PQstatus(connection) != CONNECTION_OK) return ErrorKind::Io;
    const char* const state = PQresultErrorField(result, PG_DIAG_SQLSTATE);
    return state && std::string_view(state) == "57014" ? ErrorKind::Busy : ErrorKind::Sql;
}

}  // namespace

PostgresRows::PostgresRows(pg_result* result) : result_(result, PQclear) {}

bool PostgresRows::Next() { return ++row_ < PQntuples(result_.get()); }

bool PostgresRows::IsNull(const char* field) const {
    return PQgetisnull(result_.get(), row_, Place(field)) != 0;
}

bool PostgresRows::IsTrue(const char* field) const { return Text(field) == "t"; }

std::string PostgresRows::Text(const char* field) const {
    std::string text = PQgetvalue(result_.get(), row_, Place(field));
    // A database without an encoding of its own gives bytes of any kind.
    return text::IsValidUtf8(text) ? text : text::Encode(text::Decode(text));
}

int PostgresRows::Place(const char* field) const { return PQfnumber(result_.get(), field); }

PostgresConnection::PostgresConnection(const PostgresPlace& place) : connection_(Start(place), PQfinish) {
    if (!connection_) throw std::bad_alloc();
    PQsetErrorVerbosity(connection_.get(), PQERRORS_VERBOSE);  // which tells the SQLSTATE of a refusal
    Complete(connection_.get());
    PQsetErrorVerbosity(connection_.get(), PQERRORS_DEFAULT);
}

PostgresRows PostgresConnection::Run(const std::string& sql, const std::vector<std::string>& parameters) {
    std::vector<const char*> values;
    for (const auto& parameter : parameters) values.push_back(parameter.c_str());
    PGresult* const result = PQexecParams(connection_.get(), sql.c_str(), static_cast<int>(values.size()),
                                          nullptr, values.data(), nullptr, nullptr, 0);
    PostgresRows rows(result);
    const auto status = PQresultStatus(result);
    if (status == PGRES_TUPLES_OK || status == PGRES_COMMAND_OK) return rows;
    throw DatabaseError(KindOfFailure(connection_.get(), result),
                        "The database \"" + DatabaseName() +
                            "\" failed with: " + Told(PQerrorMessage(connection_.get())).text + ".",
                        sql);
}

std::string PostgresConnection::Place() const {
    std::string host = OptionOf(connection_.get(), "host");
    if (host.empty()) host = OptionOf(connection_.get(), "hostaddr");
    if (host.empty()) host = PQhost(connection_.get());
    const std::string port = OptionOf(connection_.get(), "port");
    std::string place = PostgresOption("host", host);
    if (!port.empty() && port != "5432") place += " " + PostgresOption("port", port);
    return place + " " + PostgresOption("dbname", DatabaseName());
}

std::string PostgresConnection::DatabaseName() const { return PQdb(connection_.get()); }

int PostgresConnection::ServerVersion() const { return PQserverVersion(connection_.get()); }

}  // namespace tessel::db

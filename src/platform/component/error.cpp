#include "tessel/error.h"

#include <array>
#include <utility>

namespace tessel {

namespace {

constexpr std::array<std::pair<ErrorKind, std::string_view>, 23> names{{
    {ErrorKind::Argument, "argument"},
    {ErrorKind::Member, "member"},
    {ErrorKind::Conversion, "conversion"},
    {ErrorKind::Component, "component"},
    {ErrorKind::Collection, "collection"},
    {ErrorKind::JsonLine, "json"},
    {ErrorKind::Answer, "answer"},
    {ErrorKind::File, "file"},
    {ErrorKind::Xml, "xml"},
    {ErrorKind::Host, "host"},
    {ErrorKind::Sql, "sql"},
    {ErrorKind::Constraint, "constraint"},
    {ErrorKind::Missing, "missing"},
    {ErrorKind::Empty, "empty"},
    {ErrorKind::NotADatabase, "not a database"},
    {ErrorKind::Jet, "jet"},
    {ErrorKind::Damaged, "damaged"},
    {ErrorKind::Foreign, "foreign"},
    {ErrorKind::Newer, "newer"},
    {ErrorKind::ReadOnly, "read only"},
    {ErrorKind::Busy, "busy"},
    {ErrorKind::Full, "full"},
    {ErrorKind::Io, "io"},
}};

}  // namespace

std::string_view KindName(ErrorKind kind) {
    for (const auto& [value, name] : names)
        if (value == kind) return name;
    return "error";
}

std::optional<ErrorKind> KindNamed(std::string_view name) {
    for (const auto& [value, known] : names)
        if (known == name) return value;
    return {};
}

}  // namespace tessel

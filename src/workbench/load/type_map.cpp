#include "workbench/load/type_map.h"

#include <algorithm>
#include <charconv>
#include <vector>

#include "platform/text/utf8.h"

namespace tessel::workbench {
namespace {

// How the size of a declared type is taken.
enum class Size {
    Ignored,
    Taken,   // as precision and scale
    OrOne,   // as length, 1 when there is none
    OrLong,  // as length; without one the long type of the kind is the counterpart
    OneBit,  // ignored when it is 1, else as length of a text of bits
    Lost,    // ignored, and so is something of the type itself, such as its time zone
};

struct TypeRow {
    std::string_view declared;
    std::string_view name;
    Size size;
    std::string_view withSize = {};  // the type where a size is declared, if that is another
    std::int32_t length = 0;         // of the counterpart, where the declared type has none
};

constexpr TypeRow knownTypes[] = {
    {"char", "CHAR", Size::OrOne},
    {"bpchar", "CHAR", Size::OrLong},
    {"uuid", "CHAR", Size::Lost, {}, 36},
    {"character", "CHAR", Size::OrOne},
    {"nchar", "CHAR", Size::OrOne},
    {"native character", "CHAR", Size::OrOne},
    {"national character", "CHAR", Size::OrOne},
    {"varchar", "VARCHAR", Size::OrLong},
    {"varchar2", "VARCHAR", Size::OrLong},
    {"nvarchar", "VARCHAR", Size::OrLong},
    {"nvarchar2", "VARCHAR", Size::OrLong},
    {"character varying", "VARCHAR", Size::OrLong},
    {"char varying", "VARCHAR", Size::OrLong},
    {"varying character", "VARCHAR", Size::OrLong},
    {"text", "LONGVARCHAR", Size::Ignored, "VARCHAR"},
    {"tinytext", "LONGVARCHAR", Size::Ignored},
    {"mediumtext", "LONGVARCHAR", Size::Ignored},
    {"longtext", "LONGVARCHAR", Size::Ignored},
    {"ntext", "LONGVARCHAR", Size::Ignored},
    {"clob", "LONGVARCHAR", Size::Ignored},
    {"nclob", "LONGVARCHAR", Size::Ignored},
    {"longvarchar", "LONGVARCHAR", Size::Ignored},
    {"numeric", "NUMERIC", Size::Taken},
    {"number", "NUMERIC", Size::Taken},
    {"decimal", "DECIMAL", Size::Taken},
    {"dec", "DECIMAL", Size::Taken},
    {"int", "INTEGER", Size::Ignored},
    {"int4", "INTEGER", Size::Ignored},
    {"integer", "INTEGER", Size::Ignored},
    {"mediumint", "INTEGER", Size::Ignored},
    {"serial", "INTEGER", Size::Ignored},
    {"bigint", "BIGINT", Size::Ignored},
    {"big int", "BIGINT", Size::Ignored},
    {"int8", "BIGINT", Size::Ignored},
    {"bigserial", "BIGINT", Size::Ignored},
    {"smallint", "SMALLINT", Size::Ignored},
    {"int2", "SMALLINT", Size::Ignored},
    {"tinyint", "TINYINT", Size::Ignored},
    {"real", "REAL", Size::Ignored},
    {"float4", "REAL", Size::Ignored},
    {"float", "FLOAT", Size::Taken},
    {"double", "DOUBLE", Size::Ignored},
    {"double precision", "DOUBLE", Size::Ignored},
    {"float8", "DOUBLE", Size::Ignored},
    {"date", "DATE", Size::Ignored},
    {"time", "TIME", Size::Ignored},
    {"time without time zone", "TIME", Size::Ignored},
    {"time with time zone", "TIME", Size::Lost},
    {"timetz", "TIME", Size::Lost},
    {"timestamp", "TIMESTAMP", Size::Ignored},
    {"timestamp without time zone", "TIMESTAMP", Size::Ignored},
    {"timestamp with time zone", "TIMESTAMP", Size::Lost},
    {"timestamptz", "TIMESTAMP", Size::Lost},
    {"datetime", "TIMESTAMP", Size::Ignored},
    {"smalldatetime", "TIMESTAMP", Size::Ignored},
    {"bool", "BOOLEAN", Size::Ignored},
    {"boolean", "BOOLEAN", Size::Ignored},
    {"bit", "BOOLEAN", Size::OneBit},
    {"binary", "BINARY", Size::OrLong},
    {"varbinary", "VARBINARY", Size::OrLong},
    {"binary varying", "VARBINARY", Size::OrLong},
    {"blob", "LONGVARBINARY", Size::Ignored, "VARBINARY"},
    {"tinyblob", "LONGVARBINARY", Size::Ignored},
    {"mediumblob", "LONGVARBINARY", Size::Ignored},
    {"longblob", "LONGVARBINARY", Size::Ignored},
    {"bytea", "LONGVARBINARY", Size::Ignored},
    {"image", "LONGVARBINARY", Size::Ignored},
    {"longvarbinary", "LONGVARBINARY", Size::Ignored},
};

// Words that say nothing about the kind of values. What "unsigned" says of their range is lost.
constexpr std::string_view passedOver[] = {"unsigned", "signed", "zerofill"};

struct Declared {
    std::string name;  // in lower case, its words parted by single blanks
    std::vector<std::int32_t> sizes;
};

void AddWord(std::string& name, std::string_view word) {
    if (word.empty() || std::ranges::count(passedOver, word) > 0) return;
    name.append(name.empty() ? "" : " ").append(word);
}

std::string WordsOf(std::string_view text) {
    std::string name;
    while (!text.empty()) {
        const auto end = std::min(text.find_first_of(" \t\r\n"), text.size());
        AddWord(name, text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return name;
}

std::vector<std::int32_t> NumbersOf(std::string_view text) {
    std::vector<std::int32_t> numbers;
    const char* position = text.data();
    const char* const end = position + text.size();
    while (position != end) {
        std::int32_t number = 0;
        const auto [stop, fault] = std::from_chars(position, end, number);
        if (fault == std::errc()) numbers.push_back(number);
        position = fault == std::errc() ? stop : position + 1;
    }
    return numbers;
}

Declared TakeApart(std::string_view declared) {
    const std::string text = text::LowerAscii(declared);
    const std::string_view all = text;
    const auto open = all.find('(');
    if (open == std::string_view::npos) return {WordsOf(all), {}};
    const auto close = std::min(all.find(')', open), all.size());
    const auto after = std::min(close + 1, all.size());
    return {WordsOf(std::string(all.substr(0, open)) + " " + std::string(all.substr(after))),
            NumbersOf(all.substr(open + 1, close - open - 1))};
}

MappedType Counterpart(const TypeRow& row, std::int32_t precision, std::int32_t scale) {
    const std::string name(row.name);
    if (!row.withSize.empty() && precision > 0) return {std::string(row.withSize), precision};
    switch (row.size) {
        case Size::Taken:
            return {name, precision, scale};
        case Size::OrOne:
            return {name, std::max(precision, 1)};
        case Size::OrLong:
            if (precision > 0) return {name, precision};
            return {name.ends_with("BINARY") ? "LONGVARBINARY" : "LONGVARCHAR", 0, 0, false};
        case Size::OneBit:
            if (precision > 1) return {"CHAR", precision, 0, false};
            break;
        case Size::Lost:
            return {name, row.length, 0, false};
        case Size::Ignored:
            break;
    }
    return {name};
}

MappedType Mapped(const Declared& type, bool isArray) {
    const std::int32_t precision = type.sizes.empty() ? 0 : type.sizes[0];
    const std::int32_t scale = type.sizes.size() < 2 ? 0 : type.sizes[1];
    const auto* const row = std::ranges::find(knownTypes, type.name, &TypeRow::declared);
    if (row != std::end(knownTypes)) return Counterpart(*row, precision, scale);
    if (precision > 0 && !isArray) return {"VARCHAR", precision, 0, false};  // an array's is its element's
    return {"LONGVARCHAR", 0, 0, false};
}

}  // namespace

MappedType MapType(std::string_view declared) {
    MappedType type = Mapped(TakeApart(declared), declared.ends_with("[]"));
    if (text::LowerAscii(declared).find("unsigned") != std::string::npos) type.isExact = false;
    return type;
}

}  // namespace tessel::workbench

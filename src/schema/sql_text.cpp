#include "schema/sql_text.h"

#include "platform/text/utf8.h"
#include "tessel/convert.h"

namespace tessel {

std::string SqlQuote(std::string_view text) {
    std::string quoted;
    quoted.reserve(text.size());
    for (const char character : text) {
        if (character == '\'')
            quoted += "''";
        else if (character == '|')
            quoted += "' & Chr(124) & '";
        else
            quoted += character;
    }
    return quoted;
}

std::string NullToText(const Value& value) {
    return value.IsNull() ? std::string() : std::string(text::Trim(ToText(value)));
}

std::string FlattenText(std::string_view text) { return std::string(text::Trim(BlankControls(text))); }

std::string BlankControls(std::string_view text) {
    std::string blanked(text);
    for (char& character : blanked)
        if (character == '\r' || character == '\n' || character == '\t') character = ' ';
    return blanked;
}

std::string NextToken(std::string& text, char delimiter) {
    const std::size_t end = text.find(delimiter);
    std::string token = text.substr(0, end);
    text.erase(0, end == std::string::npos ? end : end + 1);
    return token;
}

bool CollectionHasKey(const Collection& collection, std::string_view key) { return collection.HasKey(key); }

}  // namespace tessel

#pragma once

#include <string>
#include <string_view>

#include "tessel/value.h"

namespace tessel {

// Text as it stands between single quotes in a statement: "'" doubled, "|" written as "' & Chr(124) & '".
[[nodiscard]] std::string SqlQuote(std::string_view text);

// Null becomes the empty text; anything else its text, trimmed of blanks at both ends.
[[nodiscard]] std::string NullToText(const Value& value);

// Every carriage return, line feed and tab becomes one blank; FlattenText then trims blanks at both ends.
[[nodiscard]] std::string FlattenText(std::string_view text);
[[nodiscard]] std::string BlankControls(std::string_view text);

// Takes off the part before the first delimiter and returns it; the part after it stays in `text`. Without a
// delimiter the whole text is taken.
[[nodiscard]] std::string NextToken(std::string& text, char delimiter = ';');

// Whether the keyed collection holds an item with that key.
[[nodiscard]] bool CollectionHasKey(const Collection& collection, std::string_view key);

}  // namespace tessel

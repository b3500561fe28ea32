#pragma once

#include <string>

namespace tessel::text {

// The language of the locale that the environment names for `category` ("LC_MESSAGES", "LC_CTYPE", ...), as
// its two or three letters: "ja" for ja_JP.UTF-8. LC_ALL goes before the category, LANG after it; empty when
// none is set.
[[nodiscard]] std::string LocaleLanguage(const char* category);

}  // namespace tessel::text

#include "platform/text/locale.h"

#include <cstdlib>
#include <string_view>

namespace tessel::text {

std::string LocaleLanguage(const char* category) {
    for (const char* name : {"LC_ALL", category, "LANG"}) {
        const char* value = std::getenv(name);
        if (!value || *value == '\0') continue;
        const std::string_view locale = value;
        return std::string(locale.substr(0, locale.find_first_of("_.@")));
    }
    return {};
}

}  // namespace tessel::text

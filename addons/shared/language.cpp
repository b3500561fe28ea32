#include "shared/language.h"

namespace tessel::tool {

Language LanguageOf(std::string_view code) {
    if (code == "ja") return Language::Japanese;
    return code == "ko" ? Language::Korean : Language::English;
}

std::string FilledIn(std::string_view phrase, const std::vector<std::string>& details) {
    std::string filled;
    for (std::size_t i = 0; i < phrase.size(); ++i) {
        const std::size_t detail = phrase[i] == '%' && i + 1 < phrase.size()
                                       ? static_cast<std::size_t>(phrase[i + 1] - '1')
                                       : details.size();
        if (detail >= details.size()) {
            filled += phrase[i];
            continue;
        }
        filled += details[detail];
        ++i;
    }
    return filled;
}

}  // namespace tessel::tool

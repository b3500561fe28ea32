#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace tessel::tool {

enum class Language { English, Japanese, Korean };

// The language of a code such as "ja"; English for any other.
[[nodiscard]] Language LanguageOf(std::string_view code);

// The phrase with `details` in place of %1, %2 and so on.
[[nodiscard]] std::string FilledIn(std::string_view phrase, const std::vector<std::string>& details);

// One of a tool's texts, `Text` being the enumeration of them.
template <typename Text>
struct Phrases {
    Text text;
    std::array<const char*, 3> phrases;  // in the order of Language
};

// All of them, in the order of the enumeration.
template <typename Text, std::size_t count>
using TextTable = std::array<Phrases<Text>, count>;

template <typename Text, std::size_t count>
constexpr bool StandInOrder(const TextTable<Text, count>& table) {
    for (std::size_t i = 0; i < count; ++i)
        if (table[i].text != static_cast<Text>(i)) return false;
    return true;
}

template <typename Text, std::size_t count>
std::string Said(const TextTable<Text, count>& table, Language language, Text text,
                 const std::vector<std::string>& details) {
    const auto& phrases = table[static_cast<std::size_t>(text)].phrases;
    return FilledIn(phrases[static_cast<std::size_t>(language)], details);
}

}  // namespace tessel::tool

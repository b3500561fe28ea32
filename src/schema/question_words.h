#pragma once

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>

#include "host/questions.h"

// The words that stand for icons, buttons and answers where calls are made by name.
namespace tessel::question_words {

inline constexpr std::array<std::pair<host::Icon, const char*>, 5> icons{{
    {host::Icon::None, "none"},
    {host::Icon::Critical, "critical"},
    {host::Icon::Exclamation, "exclamation"},
    {host::Icon::Warning, "warning"},
    {host::Icon::Information, "information"},
}};
inline constexpr std::array<std::pair<host::Buttons, const char*>, 3> buttons{{
    {host::Buttons::OK, "OK"},
    {host::Buttons::OKCancel, "OKCancel"},
    {host::Buttons::YesNo, "YesNo"},
}};
inline constexpr std::array<std::pair<host::Answer, const char*>, 4> answers{{
    {host::Answer::OK, "OK"},
    {host::Answer::Cancel, "Cancel"},
    {host::Answer::Yes, "Yes"},
    {host::Answer::No, "No"},
}};

template <typename Words, typename Meaning>
[[nodiscard]] const char* WordOf(const Words& words, Meaning meaning) {
    return std::ranges::find(words, meaning, [](const auto& entry) { return entry.first; })->second;
}

// Nothing for a word that is not in the table.
template <typename Words>
[[nodiscard]] auto Meaning(const Words& words, std::string_view word) {
    using Result = std::optional<std::remove_cv_t<decltype(words[0].first)>>;
    const auto entry = std::ranges::find(words, word, [](const auto& known) { return known.second; });
    return entry == words.end() ? Result() : Result(entry->first);
}

}  // namespace tessel::question_words

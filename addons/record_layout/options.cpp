#include "options.h"

#include <algorithm>
#include <array>
#include <utility>

#include "line_text.h"
#include "tokens.h"

namespace tessel::layout {

namespace {

template <typename Meaning, std::size_t count>
using Words = std::array<std::pair<std::string_view, Meaning>, count>;

constexpr Words<Format, 3> formats{
    {{"auto", Format::Auto}, {"fixed", Format::Fixed}, {"free", Format::Free}}};
constexpr Words<Occurrences, 2> occurrences{{{"expand", Occurrences::Expand}, {"once", Occurrences::Once}}};
constexpr Words<Redefinitions, 2> redefinitions{
    {{"first", Redefinitions::First}, {"all", Redefinitions::All}}};
constexpr Words<bool, 2> answers{{{"yes", true}, {"no", false}}};

template <typename Meaning, std::size_t count>
Meaning MeaningOf(const Words<Meaning, count>& words, const std::string& name, const std::string& value) {
    for (const auto& [word, meaning] : words)
        if (SameWord(word, value)) return meaning;
    throw Complaint(Text::BadParameter, {name, value});
}

template <typename Meaning, std::size_t count>
std::string WordOf(const Words<Meaning, count>& words, Meaning wanted) {
    const auto found = std::ranges::find(words, wanted, [](const auto& entry) { return entry.second; });
    return std::string(found->first);
}

}  // namespace

void SetOption(Options& options, const std::string& name, const std::string& value) {
    const std::string upper = Upper(name);
    if (upper == "FILE")
        options.file = value;
    else if (upper == "TABLE")
        options.table = value;
    else if (upper == "RECORD")
        options.record = value;
    else if (upper == "FORMAT")
        options.format = MeaningOf(formats, name, value);
    else if (upper == "OCCURS")
        options.choices.occurrences = MeaningOf(occurrences, name, value);
    else if (upper == "REDEFINES")
        options.choices.redefinitions = MeaningOf(redefinitions, name, value);
    else if (upper == "PREFIX")
        options.choices.hasPrefix = MeaningOf(answers, name, value);
    else if (upper == "PREVIEW")
        options.hasPreview = MeaningOf(answers, name, value);
    else
        throw Complaint(Text::UnknownParameter, {name});
}

Options ReadOptions(const std::string& parameter) {
    Options options;
    std::string_view rest = parameter;
    while (!rest.empty()) {
        const std::string_view pair = rest.substr(0, rest.find(';'));
        rest.remove_prefix(std::min(pair.size() + 1, rest.size()));
        if (Trimmed(pair).empty()) continue;
        const std::size_t equals = std::min(pair.find('='), pair.size());
        const std::string_view value = pair.substr(std::min(equals + 1, pair.size()));
        SetOption(options, std::string(Trimmed(pair.substr(0, equals))), std::string(Trimmed(value)));
    }
    return options;
}

std::string FormatWord(const Options& options) { return WordOf(formats, options.format); }
std::string OccursWord(const Options& options) { return WordOf(occurrences, options.choices.occurrences); }
std::string RedefinesWord(const Options& options) {
    return WordOf(redefinitions, options.choices.redefinitions);
}

}  // namespace tessel::layout

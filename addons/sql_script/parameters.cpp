#include "sql_script/parameters.h"

#include "sql_script/text_tools.h"
#include "tessel/error.h"

namespace tessel::sql_script {

namespace {

[[noreturn]] void Refuse(Language language, Text text, const std::vector<std::string>& parameters) {
    throw Error(ErrorKind::Argument, Say(language, text, parameters));
}

const Dialect* ReadDialect(const std::string& value, Language language) {
    const Dialect* dialect = FindDialect(value);
    std::string names;
    for (const auto& known : Dialects()) names += (names.empty() ? "" : ", ") + std::string(known.name);
    if (!dialect) Refuse(language, Text::WrongValue, {"dialect", value, names});
    return dialect;
}

bool ReadYesNo(const std::string& name, const std::string& value, Language language) {
    if (value != "yes" && value != "no") Refuse(language, Text::WrongValue, {name, value, "yes, no"});
    return value == "yes";
}

}  // namespace

Parameters ReadParameters(std::string_view text, Language language) {
    Parameters parameters;
    while (!text.empty()) {
        std::string_view value = NextPart(text, ';');
        if (Trim(value).empty()) continue;
        const std::string name(Trim(NextPart(value, '=')));
        const std::string given(Trim(value));
        if (name == "dialect")
            parameters.dialect = ReadDialect(given, language);
        else if (name == "file")
            parameters.file = given;
        else if (name == "drop")
            parameters.options.dropsTables = ReadYesNo(name, given, language);
        else if (name == "comments")
            parameters.options.hasComments = ReadYesNo(name, given, language);
        else
            Refuse(language, Text::UnknownParameter, {name});
    }
    return parameters;
}

}  // namespace tessel::sql_script

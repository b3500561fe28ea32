#include "workbench/project_name.h"

#include <algorithm>
#include <string>

#include "platform/text/utf8.h"
#include "tessel/error.h"

namespace tessel::workbench {
namespace {

constexpr std::size_t longestName = 64;

bool IsRefused(char32_t character) {
    constexpr std::u32string_view refused = U"/\\:*?\"<>|\u007F";
    return character < 0x20 || refused.find(character) != std::u32string_view::npos;
}

// Why the name is none; empty when nothing is wrong with it.
std::string Fault(std::string_view name) {
    if (name.empty()) return "is empty";
    if (!text::IsValidUtf8(name)) return "is not UTF-8";
    if (text::CharacterCount(name) > longestName) return "is longer than 64 characters";
    if (std::ranges::any_of(text::Decode(name), IsRefused)) {
        return R"(holds one of / \ : * ? " < > | or a control character)";
    }
    if (text::Trim(name) != name) return "begins or ends with a blank";
    if (name.ends_with('.')) return "ends with a dot";
    return "";
}

}  // namespace

void CheckProjectName(std::string_view name) {
    const auto fault = Fault(name);
    if (fault.empty()) return;
    throw Error(ErrorKind::Argument,
                "\"" + std::string(name) + "\" cannot be the name of a project: it " + fault + ".");
}

}  // namespace tessel::workbench

#include "ui/rules/table_commands.h"

#include "schema/activity.h"
#include "ui/rules/help_contexts.h"
#include "ui/rules/messages.h"

namespace tessel {

namespace {

constexpr int illegalNameText = 2010;
constexpr int newNameText = 2011;
constexpr int renameTitleText = 2012;
constexpr int newTableActivity = 2084;
constexpr int dropTableActivity = 2085;
constexpr int renameTableActivity = 2086;

}  // namespace

std::optional<std::int32_t> TableCommands::New() {
    std::string name;
    std::int32_t tabID = -1;
    if (!WorkspaceOf(state_)->TableAddVerbally(name, tabID)) return std::nullopt;
    Note(state_, newTableActivity, {name}, Outcome::Done);
    return tabID;
}

bool TableCommands::Delete(std::int32_t tabID, const std::string& name) {
    if (!WorkspaceOf(state_)->DropTableVerbally(tabID, name)) return false;
    Note(state_, dropTableActivity, {name}, Outcome::Done);
    return true;
}

void TableCommands::AskAndRename(std::int32_t tabID, const std::string& name) {
    const auto typed = state_.questions->Ask({.prompt = state_.texts->Text(newNameText),
                                              .title = state_.texts->Format(renameTitleText, {name}),
                                              .text = name,
                                              .helpFile = state_.helpFile,
                                              .helpContext = help_context::renameTable});
    if (typed && *typed != name) (void)Rename(tabID, name, *typed);
}

bool TableCommands::Rename(std::int32_t tabID, const std::string& name, const std::string& newName) {
    const UserChange change{.activity = renameTableActivity,
                            .subject = name,
                            .complaint = state_.texts->Text(illegalNameText),
                            .newName = newName};
    return DoOrTell(state_, change, [&] {
        return WorkspaceOf(state_)->TableUpdate(tabID, newName, Missing{}, Missing{}, Missing{});
    });
}

}  // namespace tessel

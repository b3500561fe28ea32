#include "ui/rules/messages.h"

#include "platform/files/file_service.h"
#include "schema/action.h"
#include "schema/activity.h"

namespace tessel {

namespace {

constexpr int replaceText = 2653;

}  // namespace

void Tell(const ComponentState& state, const std::string& text, host::Icon icon, const std::string& detail) {
    state.questions->Show({.text = text, .title = state.Title(), .icon = icon, .detail = detail});
}

bool IsConfirmed(const ComponentState& state, const std::string& question, host::Icon icon) {
    return state.questions->Show({.text = question,
                                  .title = state.Title(),
                                  .icon = icon,
                                  .buttons = host::Buttons::OKCancel}) == host::Answer::OK;
}

bool MayReplace(const ComponentState& state, const std::string& path) {
    return !files::FileExists(path) ||
           IsConfirmed(state, state.texts->Format(replaceText, {path}), host::Icon::Exclamation);
}

bool DoOrTell(ComponentState& state, const UserChange& change, const std::function<bool()>& act) {
    std::string reason;
    bool done = false;
    state.failure.clear();
    try {
        done = act();
        reason = state.failure;
    } catch (const Error& error) {
        reason = error.what();
    }
    Note(state, change.activity, {change.subject, change.newName}, done ? Outcome::Done : Outcome::Refused);
    if (!done) Tell(state, change.complaint, change.icon, reason);
    return done;
}

bool WriteOrTell(ComponentState& state, const UserChange& change, const std::function<bool()>& write) {
    return DoOrTell(state, change, [&] {
        db::Transaction transaction(state.Database());
        if (!write()) return false;
        transaction.Commit();
        return true;
    });
}

}  // namespace tessel

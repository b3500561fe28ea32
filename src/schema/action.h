#pragma once

#include <utility>

#include "schema/component_state.h"

namespace tessel {

// Runs an action as one transaction and returns what it returns; what it wrote is kept either way. A failure
// of the database or of a conversion undoes the action and gives false; other failures undo it and are
// thrown. Why a failed action failed stands in the state's `failure`, unless it only broke a rule of a table.
template <typename Action>
bool RunTrapped(ComponentState& state, Action&& action) {
    state.failure.clear();
    try {
        db::Transaction transaction(state.Database());
        const bool result = std::forward<Action>(action)();
        transaction.Commit();
        return result;
    } catch (const db::DatabaseError& error) {
        if (error.Kind() != ErrorKind::Constraint) state.failure = error.what();
        return false;
    } catch (const Error& error) {
        if (error.Kind() != ErrorKind::Conversion) throw;
        return false;
    }
}

// Runs what may fail without harm, such as showing in the window what the database already holds.
template <typename Action>
void RunIgnoringErrors(Action&& action) {
    try {
        std::forward<Action>(action)();
    } catch (const Error&) {
        return;
    }
}

}  // namespace tessel

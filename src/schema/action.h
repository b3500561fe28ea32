#pragma once

#include <string>
#include <utility>

#include "platform/db/database.h"

namespace tessel {

// Why the action that RunTrapped ran last on this thread failed; empty when it did not, or when it only broke
// a rule of a table.
inline thread_local std::string trappedReason;

// Runs an action as one transaction and returns what it returns; what it wrote is kept either way. A failure
// of the database or of a conversion undoes the action and gives false; other failures undo it and are
// thrown.
template <typename Action>
bool RunTrapped(db::Database& database, Action&& action) {
    trappedReason.clear();
    try {
        db::Transaction transaction(database);
        const bool result = std::forward<Action>(action)();
        transaction.Commit();
        return result;
    } catch (const db::DatabaseError& error) {
        if (error.Kind() != ErrorKind::Constraint) trappedReason = error.what();
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

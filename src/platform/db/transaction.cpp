#include <string>

#include "platform/db/engine.h"

namespace tessel::db {
namespace {

std::string SavepointName(int depth) { return "level" + std::to_string(depth); }

void RollBack(Database::Engine& engine, int depth) {
    if (!engine.InTransaction()) return;
    if (depth == 0) return engine.Control("rollback");
    engine.Control("rollback to " + SavepointName(depth));
    engine.Control("release " + SavepointName(depth));
}

}  // namespace

Transaction::Transaction(Database& database)
    : engine_(*database.engine_), depth_(engine_.depth), changesBefore_(engine_.ChangeCount()) {
    engine_.RefuseLostTransaction("begin");
    engine_.Control(depth_ > 0 ? "savepoint " + SavepointName(depth_) : "begin immediate");
    ++engine_.depth;
}

Transaction::~Transaction() {
    if (open_) Undo();
}

void Transaction::Commit() {
    try {
        engine_.RefuseLostTransaction("commit");
        engine_.Control(depth_ == 0 ? "commit" : "release " + SavepointName(depth_));
    } catch (const DatabaseError&) {
        Undo();
        throw;
    }
    engine_.depth = depth_;
    open_ = false;
}

bool Transaction::IsLost() const { return open_ && !engine_.InTransaction(); }

void Transaction::Undo() noexcept {
    engine_.depth = depth_;
    open_ = false;
    engine_.ForgetChangesSince(changesBefore_);
    try {
        RollBack(engine_, depth_);
    } catch (const DatabaseError&) {
        // The engine undoes the rest when the file is next opened.
    }
}

}  // namespace tessel::db

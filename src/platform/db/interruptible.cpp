#include "platform/db/interruptible.h"

#include <sqlite3.h>

#include <utility>

#include "platform/db/engine.h"

namespace tessel::db {
namespace {

constexpr int stepsBetween = 10000;  // of the engine; far less than a millisecond

int MustStop(void* engine) {
    const auto& goesOn = static_cast<const Database::Engine*>(engine)->goesOn;
    return goesOn && !goesOn() ? 1 : 0;
}

}  // namespace

Interruptible::Interruptible(Database& database, std::function<bool()> goesOn) : engine_(*database.engine_) {
    engine_.goesOn = std::move(goesOn);
    sqlite3_progress_handler(engine_.connection.get(), stepsBetween, MustStop, &engine_);
}

Interruptible::~Interruptible() {
    sqlite3_progress_handler(engine_.connection.get(), 0, nullptr, nullptr);
    engine_.goesOn = nullptr;
}

}  // namespace tessel::db

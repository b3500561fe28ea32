#include "platform/db/interruptible.h"

#include <sqlite3.h>

#include <utility>

#include "platform/db/engine.h"

namespace tessel::db {
namespace {

constexpr int stepsBetween = 10000;  // of the engine; far less than a millisecond

int MustStop(void* asking) {
    auto& engine = *static_cast<Database::Engine*>(asking);
    if (!engine.goesOn) return 0;
    engine.isAsking = true;
    const bool goesOn = engine.goesOn();
    engine.isAsking = false;
    return goesOn ? 0 : 1;
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

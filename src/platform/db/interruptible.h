#pragma once

#include <functional>

#include "platform/db/database.h"

namespace tessel::db {

// While this lives, each statement of the database asks `goesOn` every now and then as it works, some
// thousand times a second; it stops at the answer false, and throws. An action of several statements is then
// undone as a whole, and so are the transactions around it when the statement changed rows. Beginning, ending
// and undoing a transaction asks nothing. `goesOn` throws nothing, and finds the database busy:
// what it asks of it throws ErrorKind::Busy.
class Interruptible {
  public:
    Interruptible(Database& database, std::function<bool()> goesOn);
    ~Interruptible();
    Interruptible(const Interruptible&) = delete;
    Interruptible& operator=(const Interruptible&) = delete;

  private:
    Database::Engine& engine_;
};

}  // namespace tessel::db

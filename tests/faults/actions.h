#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <vector>

#include "ui/rules/rules_test.h"

namespace tessel::test {

// What one action of the user needs around it.
struct Surroundings {
    ComponentState& state;
    VNTWS& workspace;
    const LocaleConversions& locale;
    DateTime date;
    std::string folder;  // of the add-on's process
};

// Does the action, or does it again; whether it reports success.
using Step = std::function<bool()>;

// One action of the user that writes. Table and column identifiers are those of RulesTest.
struct Action {
    const char* name;
    std::function<Step(Surroundings&)> prepare;  // all that comes before the user confirms
    bool tells = true;                           // the user of a failure
    std::deque<QueuedAnswer> answers{};          // to what each step asks
    bool inParts = false;                        // of which one that fails does not undo the others
    bool isSlow = false;
};

[[nodiscard]] const std::vector<Action>& Actions();

}  // namespace tessel::test

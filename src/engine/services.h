#pragma once

#include "host/frontend.h"
#include "schema/component_state.h"

namespace tessel {

// Reads the installation's texts, in the language of the locale, unless whoever made the state gave others.
void ProvideTexts(ComponentState& state, host::Frontend& frontend);

}  // namespace tessel

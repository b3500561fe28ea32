#pragma once

#include "schema/component_state.h"

namespace tessel {

// Before the open schema database is closed: when its file is gone, was replaced or can no longer be written
// to, the user is asked where to save a copy of the schema, until one is saved or the user cancels. A
// relative path counts from the workspace's folder.
void OfferCopy(ComponentState& state);

}  // namespace tessel

#include "engine/headless_window.h"

namespace tessel {

std::shared_ptr<ToolWindow> LoadHeadlessWindow(ComponentState& state) {
    state.sqlTypes.LoadSqlTypes(state.Database());
    return std::make_shared<HeadlessWindow>(state);
}

}  // namespace tessel

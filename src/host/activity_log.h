#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tessel/date_time.h"

namespace tessel::host {

// What was done, when, and what came of it.
struct Activity {
    DateTime when;
    std::string action;
    std::string result;  // may be empty
};

// The host's record of what was done. It has a visibility of its own, which the window that shows it follows.
class ActivityLog {
  public:
    virtual ~ActivityLog() = default;

    [[nodiscard]] virtual const std::vector<Activity>& Activities() const = 0;  // the oldest first
    // Adds an activity that ends now. Never throws: what cannot be kept is still shown.
    virtual void Write(const std::string& action, const std::string& result) = 0;

    // Whether the user wants to see the log, and whether it then stands in the window's pane (docked) or in a
    // window of its own.
    [[nodiscard]] virtual bool IsVisible() const = 0;
    virtual void SetVisible(bool visible) = 0;
    [[nodiscard]] virtual bool IsDocked() const = 0;
    virtual void SetDocked(bool docked) = 0;

    // The one window that is told of each change; nullptr ends that.
    enum class Change { Written, State };
    virtual void Register(std::function<void(Change)> window) = 0;
};

}  // namespace tessel::host

#pragma once

#include <cstddef>
#include <string>

#include "host/activity_log.h"

namespace tessel::workbench {

// The activity log of a project, in a text file: an activity a line, as its time, a tab, the action, a tab
// and the result. The file may be missing, and need not be writable; one that another program does not let go
// of is not waited for. Whether the log is visible and docked is not kept in it.
class StoredLog : public host::ActivityLog {
  public:
    static constexpr std::size_t mostRead = 1000;          // activities, the newest
    static constexpr std::size_t mostBytes = 1024 * 1024;  // the file is cut to the last half of them

    // Reads the file; a line that is no activity is passed over.
    explicit StoredLog(std::string path);

    [[nodiscard]] const std::vector<host::Activity>& Activities() const override { return activities_; }
    // Control characters become blanks.
    void Write(const std::string& action, const std::string& result) override;

    [[nodiscard]] bool IsVisible() const override { return isVisible_; }
    void SetVisible(bool visible) override { SetState(isVisible_, visible); }
    [[nodiscard]] bool IsDocked() const override { return isDocked_; }
    void SetDocked(bool docked) override { SetState(isDocked_, docked); }
    void Register(std::function<void(Change)> window) override { window_ = std::move(window); }

  private:
    void Read();
    void Append(const host::Activity& activity) const;
    void SetState(bool& state, bool value);
    void Tell(Change change) const;

    std::string path_;
    std::vector<host::Activity> activities_;
    bool isVisible_ = false;
    bool isDocked_ = true;
    std::function<void(Change)> window_;
};

}  // namespace tessel::workbench

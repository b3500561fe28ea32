#pragma once

#include <QDialog>
#include <QListWidget>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/settings/settings.h"
#include "platform/text/texts.h"

namespace tessel {

// The workspaces that were opened last, the newest first; they stand in the user's settings.
[[nodiscard]] std::vector<std::string> RecentWorkspaces(const Settings& settings);
// Puts the workspace in front.
void RememberWorkspace(Settings& settings, const std::string& folder);

// What can be opened where no workspace is given. Each gives the folder of a workspace, or throws.
struct StartOffers {
    std::function<std::string(const std::string& path)> find;  // the workspace that a folder belongs to
    std::function<std::string(const std::string& folder, const std::string& project)> make;
    std::function<std::string()> sample;  // the user's own copy
};

// Asks which workspace to open: one of the last, another folder, a new one, or the sample.
class StartDialog : public QDialog {
  public:
    StartDialog(const text::Texts& texts, StartOffers offers, const std::vector<std::string>& recent);

    [[nodiscard]] const std::string& Folder() const { return folder_; }  // once accepted

  private:
    void OpenRecent();
    void OpenFolder();
    void MakeNew();
    // Closes the dialog with the folder that `offer` gives; a failure is told, and it stays.
    void Take(const std::function<std::string()>& offer);
    [[nodiscard]] QString Text(int number) const;

    const text::Texts& texts_;
    StartOffers offers_;
    QListWidget* lvRecent_;
    std::string folder_;
};

// The same in an application of its own, for the program that was started without a workspace; nothing when
// the user cancelled.
[[nodiscard]] std::optional<std::string> AskForWorkspace(const text::Texts& texts, const StartOffers& offers);

}  // namespace tessel

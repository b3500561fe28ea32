#pragma once

#include <QDialog>
#include <QDialogButtonBox>
#include <QListWidget>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/settings/settings.h"
#include "ui/main/qt_questions.h"

namespace tessel {

// The workspaces that were opened last, the newest first; they stand in the user's settings.
[[nodiscard]] std::vector<std::string> RecentWorkspaces(const Settings& settings);
// Puts the workspace in front.
void RememberWorkspace(Settings& settings, const std::string& folder);

// The project of a new workspace, where none is named.
inline constexpr const char* firstProject = "Main";

// What the user wants to open.
struct StartChoice {
    std::string folder;                  // of the workspace
    std::optional<std::string> project;  // where the choice already says which
};

// What can be opened where no workspace is given. Each may throw.
struct StartOffers {
    std::function<StartChoice(const std::string& path)> find;  // the workspace that a folder belongs to
    std::function<StartChoice(const std::string& folder, const std::string& project)> make;
    std::function<StartChoice()> sample;                                          // the user's own copy
    std::function<std::vector<std::string>(const std::string& folder)> projects;  // of a workspace
};

// Asks which workspace to open: one of the last, another folder, a new one, or the sample; and of several
// projects which one.
class StartDialog : public QDialog {
  public:
    StartDialog(std::shared_ptr<const text::Texts> texts, StartOffers offers,
                const std::vector<std::string>& recent);

    [[nodiscard]] const StartChoice& Choice() const { return choice_; }  // once accepted

  private:
    void ListRecent(const std::vector<std::string>& recent);
    // Makes a button whose click does this.
    QPushButton& AddButton(const char* name, int text, const std::function<void()>& act);
    void AddButtons();
    void PlaceParts();

    void OpenRecent();
    void OpenFolder();
    void MakeNew();
    // Closes the dialog with what `offer` gives; a failure is told, and it stays.
    void Take(const std::function<StartChoice()>& offer);
    [[nodiscard]] QString Text(int number) const;

    ComponentState state_;  // with as much of it as questions need
    QtQuestions questions_;
    StartOffers offers_;
    QListWidget* lvRecent_;
    QDialogButtonBox* buttons_;
    StartChoice choice_;
};

// Each of these runs in an application of its own, for a program that has no window yet. Nothing when the
// user cancelled.
[[nodiscard]] std::optional<StartChoice> AskForWorkspace(const std::shared_ptr<const text::Texts>& texts,
                                                         const StartOffers& offers);
[[nodiscard]] std::optional<std::string> AskForProject(const text::Texts& texts,
                                                       const std::vector<std::string>& projects);
// Says why the program ends.
void ShowFailure(const std::shared_ptr<const text::Texts>& texts, const std::string& reason);

}  // namespace tessel

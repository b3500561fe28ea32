#pragma once

#include <QDialog>

#include "schema/component_state.h"
#include "ui/rules/help_contents.h"

class QLineEdit;
class QListWidget;
class QToolBar;

namespace tessel {

class HelpPage;

// The help: its topics in a list that can be filtered, and the page of one beside it. It deletes itself when
// it is closed, and closes when its owner does.
class frmHelp : public QDialog {
    Q_OBJECT

  public:
    static constexpr const char* name = "frmHelp";

    frmHelp(const ComponentState& state, HelpContents contents, QWidget* owner);

    // Shows the window, in front, at the page of this context.
    void ShowPage(int context);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    [[nodiscard]] QWidget* Topics();
    [[nodiscard]] QWidget* Page();
    [[nodiscard]] QToolBar* Commands();
    [[nodiscard]] QString Text(int number) const;

    void FilterTopics(const QString& filter);
    void OpenFirstTopic();
    void FollowPage(const QUrl& page);

    const ComponentState& state_;
    HelpContents contents_;
    QLineEdit* txtFilter_;
    QListWidget* lvTopics_;
    HelpPage* txtPage_;
};

}  // namespace tessel

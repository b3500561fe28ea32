#pragma once

#include <QDialog>
#include <QDialogButtonBox>
#include <QVBoxLayout>
#include <string>

#include "schema/component_state.h"

namespace tessel {

// The captions that every dialog bears.
inline constexpr int okText = 2000;
inline constexpr int cancelText = 2001;

// The text as a caption that Qt shows: its line breaks as line feeds.
[[nodiscard]] QString Caption(const std::string& text);

// What all modal dialogs share: the buttons cmdOK (the default one) and cmdCancel at the bottom, Enter and
// Escape, a size that is remembered under the dialog's name, and F1, which opens the help at the dialog's
// context. The component's state outlives the dialog.
//
// A dialog derives from it, fills Body() in its constructor and overrides Confirm.
class Dialog : public QDialog {
  public:
    // `name` is the objectName, `helpContext` the number of the help page.
    Dialog(ComponentState& state, const char* name, int helpContext, QWidget* owner);

    // Shows the dialog modally; true when it was closed by OK.
    [[nodiscard]] bool Run();

    void done(int result) override;

  protected:
    // What OK does before the dialog closes; false keeps it open.
    [[nodiscard]] virtual bool Confirm() { return true; }

    [[nodiscard]] virtual QString OKCaption() const { return Text(okText); }

    [[nodiscard]] ComponentState& State() const { return state_; }
    [[nodiscard]] QString Text(int number) const;  // a resource text as a caption
    [[nodiscard]] QVBoxLayout& Body() const { return *body_; }
    [[nodiscard]] QPushButton& OKButton() const;

    void accept() override;  // asks Confirm first
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void RestoreSize();

    ComponentState& state_;
    int helpContext_;
    QVBoxLayout* body_;
    QDialogButtonBox* buttons_;
};

}  // namespace tessel

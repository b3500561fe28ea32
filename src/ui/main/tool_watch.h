#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <memory>
#include <optional>
#include <string>

#include "runner/run_add_on.h"
#include "ui/controls/busy.h"

namespace tessel {

// Keeps the window alive while a tool runs. When the tool has worked for some seconds, the dialog frmRunning
// offers to stop it, and when it asks again and again the user is asked whether to. It stands back while the
// component asks the user something, which is no work of the tool.
class ToolWatch : public RunWatch {
  public:
    // `title` is what the tool is called. State and window outlive the watch, which takes part in all that
    // the component asks as long as it lives.
    ToolWatch(ComponentState& state, QWidget& window, const QString& title);
    ~ToolWatch() override;
    ToolWatch(const ToolWatch&) = delete;
    ToolWatch& operator=(const ToolWatch&) = delete;

    [[nodiscard]] bool GoesOn() override;

    // Until the tool is waited for again.
    void StandBack();
    // Whether the tool may put one more question to the user; false once it is to be stopped.
    [[nodiscard]] bool LetsAsk();

  private:
    void Offer();  // to stop it
    [[nodiscard]] qint64 Worked() const { return worked_ + (stretch_.isValid() ? stretch_.elapsed() : 0); }

    ComponentState& state_;
    std::shared_ptr<host::Questions> questions_;  // those that the component asked before
    std::string title_;
    QDialog frmRunning_;
    std::optional<UsualPointer> pointer_;  // while that is shown
    int asked_ = 0;                        // questions since the user was last asked whether to stop it
    qint64 worked_ = 0;                    // milliseconds up to the last question
    QElapsedTimer stretch_;                // since then
    bool isStopped_ = false;
};

}  // namespace tessel

#include "ui/main/tool_watch.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "ui/dialogs/dialog.h"
#include "ui/dialogs/fields.h"

namespace tessel {

namespace {

constexpr int runningText = 2742;
constexpr qint64 patience = 3000;  // milliseconds
constexpr int width = 360;

// Asks the user while the watch stands back.
class WatchedQuestions : public host::Questions {
  public:
    WatchedQuestions(ToolWatch& watch, host::Questions& user) : watch_(watch), user_(user) {}

    host::Answer Show(const host::MessageBox& box) override {
        watch_.StandBack();
        return user_.Show(box);
    }
    std::optional<std::string> Ask(const host::InputBox& box) override {
        watch_.StandBack();
        return user_.Ask(box);
    }
    std::shared_ptr<Collection> Fill(const host::Form& form) override {
        watch_.StandBack();
        return user_.Fill(form);
    }

  private:
    ToolWatch& watch_;
    host::Questions& user_;
};

}  // namespace

ToolWatch::ToolWatch(ComponentState& state, QWidget& window, const QString& title)
    : state_(state), questions_(state.questions), frmRunning_(&window) {
    state_.questions = std::make_shared<WatchedQuestions>(*this, *questions_);
    frmRunning_.setObjectName("frmRunning");
    frmRunning_.setWindowTitle(Caption(state.Title()));
    frmRunning_.setModal(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Cancel)->setObjectName("cmdCancel");
    buttons->button(QDialogButtonBox::Cancel)->setText(Caption(state.texts->Text(cancelText)));
    auto* column = new QVBoxLayout(&frmRunning_);
    column->addWidget(
        ValueLabel("lblRunning", Caption(state.texts->Format(runningText, {title.toStdString()}))));
    column->addStretch();
    column->addWidget(buttons);
    frmRunning_.resize(QSize(width, 0).expandedTo(frmRunning_.sizeHint()));
    QObject::connect(buttons, &QDialogButtonBox::rejected, &frmRunning_, &QDialog::reject);
    QObject::connect(&frmRunning_, &QDialog::rejected, [this] { isStopped_ = true; });
}

ToolWatch::~ToolWatch() { state_.questions = questions_; }

bool ToolWatch::GoesOn() {
    if (!stretch_.isValid()) stretch_.start();
    QApplication::processEvents();
    if (!isStopped_ && Worked() >= patience) frmRunning_.show();
    return !isStopped_;
}

void ToolWatch::StandBack() {
    worked_ = Worked();
    stretch_.invalidate();
    frmRunning_.hide();
}

}  // namespace tessel

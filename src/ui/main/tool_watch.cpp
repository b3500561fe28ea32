#include "ui/main/tool_watch.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/controls/connect.h"
#include "ui/dialogs/dialog.h"
#include "ui/dialogs/fields.h"

namespace tessel {

namespace {

constexpr int runningText = 2742;
constexpr int keepsAskingText = 2743;
constexpr int mostAsked = 20;
constexpr qint64 patience = 3000;  // milliseconds
constexpr int width = 360;

// What a user answers who wants nothing.
host::Answer Refusal(host::Buttons buttons) {
    if (buttons == host::Buttons::OK) return host::Answer::OK;
    return buttons == host::Buttons::YesNo ? host::Answer::No : host::Answer::Cancel;
}

// Asks the user while the watch stands back.
class WatchedQuestions : public host::Questions {
  public:
    WatchedQuestions(ToolWatch& watch, const ComponentState& state, host::Questions& user)
        : watch_(watch), state_(state), user_(user) {}

    host::Answer Show(const host::MessageBox& box) override {
        return IsLetThrough() ? user_.Show(box) : Refusal(box.buttons);
    }
    std::optional<std::string> Ask(const host::InputBox& box) override {
        return IsLetThrough() ? user_.Ask(box) : std::nullopt;
    }
    std::shared_ptr<Collection> Fill(const host::Form& form) override {
        return IsLetThrough() ? user_.Fill(form) : nullptr;
    }

  private:
    [[nodiscard]] bool IsLetThrough() {
        watch_.StandBack();
        // As long as a tool talks, its questions stand in front of these.
        const bool isOfTool = state_.questions.get() != this;
        return !isOfTool || watch_.LetsAsk();
    }

    ToolWatch& watch_;
    const ComponentState& state_;
    host::Questions& user_;
};

}  // namespace

ToolWatch::ToolWatch(ComponentState& state, QWidget& window, const QString& title)
    : state_(state), questions_(state.questions), title_(title.toStdString()), frmRunning_(&window) {
    state_.questions = std::make_shared<WatchedQuestions>(*this, state_, *questions_);
    frmRunning_.setObjectName("frmRunning");
    frmRunning_.setWindowTitle(Caption(state.Title()));
    frmRunning_.setModal(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Cancel)->setObjectName("cmdCancel");
    buttons->button(QDialogButtonBox::Cancel)->setText(Caption(state.texts->Text(cancelText)));
    auto* column = new QVBoxLayout(&frmRunning_);
    column->addWidget(ValueLabel("lblRunning", Caption(state.texts->Format(runningText, {title_}))));
    column->addStretch();
    column->addWidget(buttons);
    frmRunning_.resize(QSize(width, 0).expandedTo(frmRunning_.sizeHint()));
    Connect(buttons, &QDialogButtonBox::rejected, &frmRunning_, &QDialog::reject);
    Connect(&frmRunning_, &QDialog::rejected, &frmRunning_, [this] {
        pointer_.reset();
        isStopped_ = true;
    });
}

ToolWatch::~ToolWatch() { state_.questions = questions_; }

bool ToolWatch::GoesOn() {
    if (!stretch_.isValid()) stretch_.start();
    QApplication::processEvents();
    if (!isStopped_ && Worked() >= patience) Offer();
    return !isStopped_;
}

void ToolWatch::Offer() {
    frmRunning_.show();
    if (!pointer_) pointer_.emplace();
}

void ToolWatch::StandBack() {
    worked_ = Worked();
    stretch_.invalidate();
    frmRunning_.hide();
    pointer_.reset();
}

bool ToolWatch::LetsAsk() {
    if (isStopped_ || asked_++ < mostAsked) return !isStopped_;
    asked_ = 1;
    isStopped_ = questions_->Show({.text = state_.texts->Format(keepsAskingText, {title_}),
                                   .title = state_.Title(),
                                   .icon = host::Icon::Warning,
                                   .buttons = host::Buttons::YesNo}) == host::Answer::Yes;
    return !isStopped_;
}

}  // namespace tessel

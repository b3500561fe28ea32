#include "ui/dialogs/dialog.h"

#include <QKeyEvent>
#include <QPushButton>

#include "ui/controls/connect.h"
#include "ui/controls/help_window.h"
#include "ui/controls/qt_settings.h"

namespace tessel {

namespace {

constexpr const char* section = "Dialogs";
constexpr int usualWidth = 400;

QtSettings SettingsOf(const ComponentState& state) { return QtSettings(SettingsPath(state.Title())); }

}  // namespace

QString Caption(const std::string& text) {
    return QString::fromStdString(text).replace("\r\n", "\n").replace('\r', '\n');
}

Dialog::Dialog(ComponentState& state, const char* name, int helpContext, QWidget* owner)
    : QDialog(owner),
      state_(state),
      helpContext_(helpContext),
      body_(new QVBoxLayout),
      buttons_(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel)) {
    setObjectName(name);
    setSizeGripEnabled(true);
    buttons_->button(QDialogButtonBox::Ok)->setObjectName("cmdOK");
    buttons_->button(QDialogButtonBox::Cancel)->setObjectName("cmdCancel");
    Connect(buttons_, &QDialogButtonBox::accepted, this, &Dialog::accept);
    Connect(buttons_, &QDialogButtonBox::rejected, this, &Dialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(body_, 1);
    layout->addWidget(buttons_);
}

QPushButton& Dialog::OKButton() const { return *buttons_->button(QDialogButtonBox::Ok); }

QString Dialog::Text(int number) const { return Caption(state_.texts->Text(number)); }

bool Dialog::Run() {
    OKButton().setText(OKCaption());
    buttons_->button(QDialogButtonBox::Cancel)->setText(Text(cancelText));
    RestoreSize();
    return exec() == Accepted;
}

void Dialog::RestoreSize() {
    const auto stored = SettingsOf(state_).Get(section, objectName().toStdString());
    const QStringList parts = QString::fromStdString(stored.value_or("")).split('x');
    const QSize size(parts.value(0).toInt(), parts.value(1).toInt());
    resize((size.isEmpty() ? sizeHint().expandedTo({usualWidth, 0}) : size).expandedTo(minimumSizeHint()));
}

void Dialog::done(int result) {
    SettingsOf(state_).Set(section, objectName().toStdString(),
                           std::to_string(width()) + 'x' + std::to_string(height()));
    QDialog::done(result);
}

void Dialog::accept() {
    if (Confirm()) QDialog::accept();
}

void Dialog::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_F1) return QDialog::keyPressEvent(event);
    ShowHelp(state_, this, helpContext_);
}

}  // namespace tessel

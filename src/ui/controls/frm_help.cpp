#include "ui/controls/frm_help.h"

#include <QAction>
#include <QEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QSplitter>
#include <QToolBar>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/controls/find_bar.h"
#include "ui/controls/help_page.h"
#include "ui/controls/image_list.h"
#include "ui/controls/list_delegate.h"

namespace tessel {

namespace {

constexpr QSize defaultSize(860, 600);
constexpr QSize iconSize(16, 16);
constexpr int topicsWidth = 240;

constexpr int captionText = 2170;
constexpr int filterText = 2171;
constexpr int contentsText = 2172;
constexpr int backText = 2173;
constexpr int forwardText = 2174;
constexpr int findText = 2175;
constexpr int topicsText = 2176;
constexpr int pageText = 2177;
constexpr int promptText = 2162;
constexpr int notFoundText = 2163;

}  // namespace

frmHelp::frmHelp(const ComponentState& state, HelpContents contents, QWidget* owner)
    : QDialog(owner),
      state_(state),
      contents_(std::move(contents)),
      txtFilter_(new QLineEdit),
      lvTopics_(new QListWidget),
      txtPage_(new HelpPage(contents_)) {
    setObjectName(name);
    setWindowModality(Qt::NonModal);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowFlag(Qt::WindowMinMaxButtonsHint);
    setWindowTitle(QString::fromStdString(state.texts->Format(captionText, {state.Title()})));
    auto* parts = new QSplitter;
    parts->addWidget(Topics());
    parts->addWidget(Page());
    parts->setSizes({topicsWidth, defaultSize.width() - topicsWidth});
    parts->setStretchFactor(1, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setMenuBar(Commands());
    layout->addWidget(parts);
    resize(defaultSize.boundedTo(screen()->availableSize()));
    if (owner) owner->installEventFilter(this);
}

QString frmHelp::Text(int number) const { return QString::fromStdString(state_.texts->Text(number)); }

QWidget* frmHelp::Topics() {
    txtFilter_->setObjectName("txtHelpFilter");
    txtFilter_->setPlaceholderText(Text(filterText));
    txtFilter_->setAccessibleName(Text(filterText));
    txtFilter_->setClearButtonEnabled(true);
    lvTopics_->setObjectName("lvHelpTopics");
    lvTopics_->setAccessibleName(Text(topicsText));
    lvTopics_->setItemDelegate(new ListDelegate(lvTopics_));
    for (const HelpTopic& topic : contents_.Topics()) lvTopics_->addItem(QString::fromStdString(topic.title));
    connect(txtFilter_, &QLineEdit::textChanged, this, &frmHelp::FilterTopics);
    connect(txtFilter_, &QLineEdit::returnPressed, this, &frmHelp::OpenFirstTopic);
    const auto open = [this](QListWidgetItem* item) {
        txtPage_->Open(contents_.Topics()[std::size_t(lvTopics_->row(item))].page);
    };
    connect(lvTopics_, &QListWidget::itemClicked, this, open);
    connect(lvTopics_, &QListWidget::itemActivated, this, open);
    auto* topics = new QWidget;
    auto* column = new QVBoxLayout(topics);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(txtFilter_);
    column->addWidget(lvTopics_);
    return topics;
}

QWidget* frmHelp::Page() {
    txtPage_->setObjectName("txtHelpPage");
    txtPage_->setAccessibleName(Text(pageText));
    connect(txtPage_, &QTextBrowser::sourceChanged, this, &frmHelp::FollowPage);
    auto* page = new QWidget;
    auto* find = new FindBar(*txtPage_, page);
    find->setObjectName("findBar");
    find->SetTexts(Text(promptText), Text(notFoundText));
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(txtPage_);
    column->addWidget(find);
    return page;
}

QToolBar* frmHelp::Commands() {
    auto* bar = new QToolBar;
    bar->setIconSize(iconSize);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    const ImageList images{
        {"Contents", "contents"}, {"Back", "back"}, {"Forward", "forward"}, {"Find", "search"}};
    const auto add = [&](const char* key, int text, const QKeySequence& shortcut) {
        QAction* action = bar->addAction(images.Icon(key), Text(text));
        action->setObjectName(QStringLiteral("tb") + key);
        action->setShortcut(shortcut);
        return action;
    };
    QAction* back = add("Back", backText, QKeySequence::Back);
    QAction* forward = add("Forward", forwardText, QKeySequence::Forward);
    QAction* contents = add("Contents", contentsText, Qt::ALT | Qt::Key_Home);
    QAction* find = add("Find", findText, QKeySequence::Find);
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(back, &QAction::triggered, txtPage_, &QTextBrowser::backward);
    connect(forward, &QAction::triggered, txtPage_, &QTextBrowser::forward);
    connect(txtPage_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(txtPage_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
    connect(contents, &QAction::triggered, this, [this] { txtPage_->Open(contents_.Topics().front().page); });
    connect(find, &QAction::triggered, this, [this] { findChild<FindBar*>("findBar")->Open(); });
    return bar;
}

void frmHelp::ShowPage(int context) {
    txtPage_->Open(contents_.OfContext(context).page);
    show();
    raise();
    activateWindow();
    txtPage_->setFocus();
}

// A topic stays in the list when its page, which begins with its title, holds all the words.
void frmHelp::FilterTopics(const QString& filter) {
    const QStringList words = filter.simplified().split(' ', Qt::SkipEmptyParts);
    for (int row = 0; row < lvTopics_->count(); ++row) {
        const HelpTopic& topic = contents_.Topics()[std::size_t(row)];
        const QString page = QString::fromStdString(topic.text);
        lvTopics_->item(row)->setHidden(!std::ranges::all_of(
            words, [&page](const QString& word) { return page.contains(word, Qt::CaseInsensitive); }));
    }
}

void frmHelp::OpenFirstTopic() {
    for (int row = 0; row < lvTopics_->count(); ++row)
        if (!lvTopics_->item(row)->isHidden())
            return txtPage_->Open(contents_.Topics()[std::size_t(row)].page);
}

void frmHelp::FollowPage(const QUrl& page) {
    const HelpTopic* topic = contents_.Find(HelpPage::NameOf(page));
    if (topic) lvTopics_->setCurrentRow(int(topic - contents_.Topics().data()));
}

bool frmHelp::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parent() && event->type() == QEvent::Hide && !event->spontaneous()) close();
    return QDialog::eventFilter(watched, event);
}

}  // namespace tessel

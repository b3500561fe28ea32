#include "ui/main/start_dialog.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <sstream>

#include "ui/controls/connect.h"
#include "ui/controls/image_list.h"
#include "ui/controls/list_delegate.h"
#include "ui/controls/qt_settings.h"
#include "ui/dialogs/dialog.h"
#include "ui/main/application.h"

namespace tessel {

namespace {

constexpr int titleText = 2780;
constexpr int recentText = 2781;
constexpr int openText = 2782;
constexpr int openFolderText = 2783;
constexpr int newText = 2784;
constexpr int sampleText = 2785;
constexpr int chooseFolderText = 2786;
constexpr int chooseEmptyText = 2787;
constexpr int newProjectText = 2788;
constexpr int projectText = 2789;

constexpr const char* section = "Settings";
constexpr const char* key = "RecentWorkspaces";
constexpr std::size_t mostRecent = 10;
constexpr int listWidth = 56;  // characters
constexpr int listHeight = 8;  // lines
constexpr int questionWidth = 360;

std::optional<std::string> ChooseProject(const text::Texts& texts, const std::vector<std::string>& projects,
                                         QWidget* owner) {
    QInputDialog dialog(owner);
    dialog.setObjectName("inputDialog");
    dialog.setWindowTitle(Caption(texts.Text(titleText)));
    dialog.setWindowIcon(ProductIcon());
    dialog.setLabelText(Caption(texts.Text(projectText)));
    QStringList names;
    for (const auto& project : projects) names << QString::fromStdString(project);
    dialog.setComboBoxItems(names);
    dialog.resize(questionWidth, dialog.sizeHint().height());
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return dialog.textValue().toStdString();
}

// The program before it has a window.
class EarlyApplication {
  public:
    explicit EarlyApplication(const text::Texts& texts) { application_.UseLanguage(texts.Language()); }

  private:
    std::array<char, 7> name_{"tessel"};
    std::array<char*, 2> arguments_{name_.data(), nullptr};
    int count_ = 1;
    Application application_{count_, arguments_.data(), [](const std::string&) {}};
};

}  // namespace

std::vector<std::string> RecentWorkspaces(const Settings& settings) {
    std::vector<std::string> folders;
    std::istringstream lines(settings.Get(section, key).value_or(""));
    for (std::string folder; std::getline(lines, folder);) folders.push_back(folder);
    return folders;
}

void RememberWorkspace(Settings& settings, const std::string& folder) {
    auto folders = RecentWorkspaces(settings);
    std::erase(folders, folder);
    folders.insert(folders.begin(), folder);
    folders.resize(std::min(folders.size(), mostRecent));
    std::string lines;
    for (const auto& each : folders) lines += each + '\n';
    settings.Set(section, key, lines);
}

StartDialog::StartDialog(std::shared_ptr<const text::Texts> texts, StartOffers offers,
                         const std::vector<std::string>& recent)
    : questions_(state_),
      offers_(std::move(offers)),
      lvRecent_(new QListWidget),
      buttons_(new QDialogButtonBox(Qt::Vertical)) {
    state_.texts = std::move(texts);
    setObjectName("frmStart");
    setWindowTitle(Text(titleText));
    setWindowIcon(ProductIcon());
    ListRecent(recent);
    AddButtons();
    PlaceParts();
}

void StartDialog::ListRecent(const std::vector<std::string>& recent) {
    lvRecent_->setObjectName("lvRecent");
    lvRecent_->setItemDelegate(new ListDelegate(lvRecent_));
    for (const auto& folder : recent) lvRecent_->addItem(QString::fromStdString(folder));
    lvRecent_->setCurrentRow(0);
    lvRecent_->setMinimumSize(listWidth * fontMetrics().averageCharWidth(),
                              listHeight * fontMetrics().height());
    // The key Enter is the default button's.
    Connect(lvRecent_, &QListWidget::itemDoubleClicked, this, [this] { OpenRecent(); });
}

QPushButton& StartDialog::AddButton(const char* name, int text, const std::function<void()>& act) {
    QPushButton* button = buttons_->addButton(Text(text), QDialogButtonBox::ActionRole);
    button->setObjectName(name);
    Connect(button, &QPushButton::clicked, this, act);
    return *button;
}

void StartDialog::AddButtons() {
    QPushButton& open = AddButton("cmdOpen", openText, [this] { OpenRecent(); });
    AddButton("cmdOpenFolder", openFolderText, [this] { OpenFolder(); });
    AddButton("cmdNew", newText, [this] { MakeNew(); });
    QPushButton& sample = AddButton("cmdSample", sampleText, [this] { Take(offers_.sample); });
    QPushButton* cancel = buttons_->addButton(Text(cancelText), QDialogButtonBox::RejectRole);
    cancel->setObjectName("cmdCancel");
    Connect(buttons_, &QDialogButtonBox::rejected, this, &QDialog::reject);
    const bool hasRecent = lvRecent_->count() > 0;
    open.setEnabled(hasRecent);
    (hasRecent ? open : sample).setDefault(true);
}

void StartDialog::PlaceParts() {
    auto* label = new QLabel(Text(recentText));
    label->setBuddy(lvRecent_);
    auto* list = new QVBoxLayout;
    list->addWidget(label);
    list->addWidget(lvRecent_);
    auto* row = new QHBoxLayout(this);
    row->addLayout(list, 1);
    row->addWidget(buttons_);
}

QString StartDialog::Text(int number) const { return Caption(state_.texts->Text(number)); }

void StartDialog::OpenRecent() {
    const QListWidgetItem* item = lvRecent_->currentItem();
    if (item) Take([&] { return offers_.find(item->text().toStdString()); });
}

void StartDialog::OpenFolder() {
    const QString folder = QFileDialog::getExistingDirectory(this, Text(chooseFolderText));
    if (!folder.isEmpty()) Take([&] { return offers_.find(folder.toStdString()); });
}

void StartDialog::MakeNew() {
    const QString folder = QFileDialog::getExistingDirectory(this, Text(chooseEmptyText));
    if (folder.isEmpty()) return;
    const auto project = questions_.Ask({.prompt = state_.texts->Text(newProjectText),
                                         .title = state_.texts->Text(titleText),
                                         .text = firstProject});
    if (project) Take([&] { return offers_.make(folder.toStdString(), *project); });
}

void StartDialog::Take(const std::function<StartChoice()>& offer) {
    try {
        StartChoice choice = offer();
        const auto projects = offers_.projects(choice.folder);
        if (!choice.project && projects.size() > 1) {
            choice.project = ChooseProject(*state_.texts, projects, this);
            if (!choice.project) return;
        }
        choice_ = std::move(choice);
        accept();
    } catch (const std::exception& error) {
        questions_.Show(
            {.text = error.what(), .title = state_.texts->Text(titleText), .icon = host::Icon::Critical});
    }
}

std::optional<StartChoice> AskForWorkspace(const std::shared_ptr<const text::Texts>& texts,
                                           const StartOffers& offers) {
    const EarlyApplication application(*texts);
    const QtSettings settings(SettingsPath(texts->Product("Tessel.Name")));
    StartDialog dialog(texts, offers, RecentWorkspaces(settings));
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return dialog.Choice();
}

std::optional<std::string> AskForProject(const text::Texts& texts, const std::vector<std::string>& projects) {
    const EarlyApplication application(texts);
    return ChooseProject(texts, projects, nullptr);
}

void ShowFailure(const std::shared_ptr<const text::Texts>& texts, const std::string& reason) {
    const EarlyApplication application(*texts);
    if (QGuiApplication::platformName() == "offscreen") return;  // nobody would ever close it
    ComponentState state;
    state.texts = texts;
    QtQuestions(state).Show({.text = reason, .title = state.Title(), .icon = host::Icon::Critical});
}

}  // namespace tessel

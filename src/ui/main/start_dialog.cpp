#include "ui/main/start_dialog.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <sstream>

#include "ui/controls/image_list.h"
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
constexpr int projectText = 2788;

constexpr const char* section = "Settings";
constexpr const char* key = "RecentWorkspaces";
constexpr std::size_t mostRecent = 10;
constexpr const char* firstProject = "Main";
constexpr int listWidth = 56;  // characters
constexpr int listHeight = 8;  // lines

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

StartDialog::StartDialog(const text::Texts& texts, StartOffers offers, const std::vector<std::string>& recent)
    : texts_(texts), offers_(std::move(offers)), lvRecent_(new QListWidget) {
    setObjectName("frmStart");
    setWindowTitle(Text(titleText));
    setWindowIcon(ProductIcon());
    lvRecent_->setObjectName("lvRecent");
    for (const auto& folder : recent) lvRecent_->addItem(QString::fromStdString(folder));
    lvRecent_->setMinimumSize(listWidth * fontMetrics().averageCharWidth(),
                              listHeight * fontMetrics().height());
    connect(lvRecent_, &QListWidget::itemActivated, this, [this] { OpenRecent(); });

    auto* label = new QLabel(Text(recentText));
    label->setBuddy(lvRecent_);
    auto* list = new QVBoxLayout;
    list->addWidget(label);
    list->addWidget(lvRecent_);
    auto* buttons = new QDialogButtonBox(Qt::Vertical);
    auto* row = new QHBoxLayout(this);
    row->addLayout(list, 1);
    row->addWidget(buttons);

    const auto add = [&](const char* name, int text, const std::function<void()>& act) {
        QPushButton* button = buttons->addButton(Text(text), QDialogButtonBox::ActionRole);
        button->setObjectName(name);
        connect(button, &QPushButton::clicked, this, act);
        return button;
    };
    QPushButton* open = add("cmdOpen", openText, [this] { OpenRecent(); });
    add("cmdOpenFolder", openFolderText, [this] { OpenFolder(); });
    add("cmdNew", newText, [this] { MakeNew(); });
    QPushButton* sample = add("cmdSample", sampleText, [this] { Take(offers_.sample); });
    QPushButton* cancel = buttons->addButton(Text(cancelText), QDialogButtonBox::RejectRole);
    cancel->setObjectName("cmdCancel");
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    connect(lvRecent_, &QListWidget::currentRowChanged, open,
            [open](int current) { open->setEnabled(current >= 0); });
    lvRecent_->setCurrentRow(0);
    open->setEnabled(!recent.empty());
    (recent.empty() ? sample : open)->setDefault(true);
}

QString StartDialog::Text(int number) const { return Caption(texts_.Text(number)); }

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
    bool given = false;
    const QString project = QInputDialog::getText(this, Text(titleText), Text(projectText), QLineEdit::Normal,
                                                  firstProject, &given);
    if (given) Take([&] { return offers_.make(folder.toStdString(), project.toStdString()); });
}

void StartDialog::Take(const std::function<std::string()>& offer) {
    try {
        folder_ = offer();
        accept();
    } catch (const std::exception& error) {
        QMessageBox::critical(this, Text(titleText), QString::fromStdString(error.what()));
    }
}

std::optional<std::string> AskForWorkspace(const text::Texts& texts, const StartOffers& offers) {
    char program[] = "tessel";
    char* arguments[] = {program, nullptr};
    int count = 1;
    Application application(count, arguments, [](const std::string&) {});
    application.UseLanguage(texts.Language());
    const QtSettings settings(SettingsPath(texts.Product("Tessel.Name")));
    StartDialog dialog(texts, offers, RecentWorkspaces(settings));
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return dialog.Folder();
}

}  // namespace tessel

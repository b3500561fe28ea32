#include "ui/dialogs/form_file.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QRegularExpression>

#include "platform/files/file_service.h"
#include "ui/dialogs/dialog.h"

namespace tessel {

namespace {

constexpr int allFilesText = 2741;

QDir WorkspaceFolder(const ComponentState& state) {
    return QString::fromStdString(
        files::NativePath(state.Frontend().GetCorvaneName(host::name_item::workspaceFolder)));
}

// The suffix of the first pattern "*.suffix"; none where there is no such pattern.
QString SuffixIn(const QString& filter) {
    return QRegularExpression(R"(\*\.(\w+))").match(filter).captured(1);
}

void StartFrom(QFileDialog& dialog, const QFileInfo& file) {
    if (file.isDir()) return dialog.setDirectory(file.filePath());
    dialog.setDirectory(file.path());
    dialog.selectFile(file.fileName());
}

}  // namespace

QString ChooseFile(const ComponentState& state, const host::FormField& field, const QString& path,
                   QWidget* owner) {
    const bool saves = field.kind == host::FormField::Kind::SaveFile;
    const QString filter = Caption(field.filter);
    QFileDialog dialog(owner);
    dialog.setObjectName("fileDialog");
    // Who writes the file asks before another one is replaced.
    dialog.setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontConfirmOverwrite);
    dialog.setAcceptMode(saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(saves ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setDefaultSuffix(SuffixIn(filter));
    QStringList filters = filter.split(";;", Qt::SkipEmptyParts);
    filters += Caption(state.texts->Text(allFilesText));
    dialog.setNameFilters(filters);
    StartFrom(dialog, QFileInfo(WorkspaceFolder(state), path));
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

}  // namespace tessel

#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QGuiApplication>
#include <QMimeData>
#include <memory>

#include "platform/files/file_service.h"
#include "ui/dialogs/diagram_formats.h"
#include "ui/dialogs/diagram_services.h"
#include "ui/dialogs/dialog.h"
#include "ui/rules/messages.h"

namespace tessel {

namespace {

constexpr int cannotSaveText = 2654;

class SaveDialog : public QFileDialog {
  public:
    SaveDialog(const text::Texts& texts, QWidget* owner) : QFileDialog(owner) {
        setObjectName("saveDialog");
        setOptions(DontUseNativeDialog | DontConfirmOverwrite);
        setAcceptMode(AcceptSave);
        QStringList filters;
        for (const DiagramFormat& format : DiagramFormats())
            filters += Caption(texts.Text(format.filterText));
        setNameFilters(filters);
    }

    // That of the suffix which the user typed, or else that of the filter.
    [[nodiscard]] const DiagramFormat& Format() const {
        for (const DiagramFormat& format : DiagramFormats())
            if (Typed().endsWith(format.suffix, Qt::CaseInsensitive)) return format;
        const auto filter = nameFilters().indexOf(selectedNameFilter());
        return DiagramFormats()[static_cast<std::size_t>(std::max<qsizetype>(filter, 0))];
    }

    [[nodiscard]] std::string Path() const {
        const char* suffix = Format().suffix;
        return (Typed().endsWith(suffix, Qt::CaseInsensitive) ? Typed() : Typed() + suffix).toStdString();
    }

  private:
    [[nodiscard]] QString Typed() const { return selectedFiles().value(0); }
};

// Whether the dialog is done with.
bool Save(const ComponentState& state, const TDiagram& diagram, const std::string& name,
          const SaveDialog& dialog) {
    const std::string path = dialog.Path();
    try {
        if (!MayReplace(state, path)) return false;
        files::ReplaceFile(path, dialog.Format().content(diagram, name));
        return true;
    } catch (const Error& error) {
        Tell(state, state.texts->Format(cannotSaveText, {path}), host::Icon::Critical, error.what());
        return false;
    }
}

}  // namespace

void CopyDiagram(const TDiagram& diagram) {
    auto content = std::make_unique<QMimeData>();
    content->setImageData(SharpPicture(diagram));
    content->setData("image/svg+xml", QByteArray::fromStdString(
                                          diagram.SvgPicture(diagram.window()->windowTitle().toStdString())));
    QGuiApplication::clipboard()->setMimeData(content.release());
}

void SaveDiagramAs(ComponentState& state, const TDiagram& diagram, const std::string& title,
                   const std::string& name, const std::string& folder) {
    QDir().mkpath(QString::fromStdString(folder));
    SaveDialog dialog(*state.texts, diagram.window());
    dialog.setWindowTitle(Caption(title));
    dialog.setDirectory(QString::fromStdString(folder));
    dialog.selectFile(QString::fromStdString(name + DiagramFormats()[0].suffix));
    while (dialog.exec() == QDialog::Accepted && !Save(state, diagram, name, dialog)) {
    }
}

}  // namespace tessel

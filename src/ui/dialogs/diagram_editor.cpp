#include "ui/dialogs/diagram_editor.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/diagram/diagram_file.h"
#include "ui/controls/busy.h"
#include "ui/controls/connect.h"
#include "ui/controls/help_window.h"
#include "ui/dialogs/diagram_services.h"
#include "ui/dialogs/dialog.h"
#include "ui/rules/help_contexts.h"
#include "ui/rules/messages.h"

namespace tessel {

namespace {

constexpr const char* name = "frmDiagramEditor";
constexpr int titleText = 2670;
constexpr int elsewhereText = 2671;
constexpr int backText = 2672;
constexpr int cannotSaveText = 2654;

// Puts one in the other's place.
void Replace(QWidget& old, QWidget& renewed) {
    delete old.parentWidget()->layout()->replaceWidget(&old, &renewed);
    renewed.show();
}

}  // namespace

DiagramEditor::DiagramEditor(ComponentState& state, TDiagram& diagram, std::string file)
    : QWidget(diagram.window(), Qt::Window), state_(state), diagram_(diagram), file_(std::move(file)) {
    setObjectName(name);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(Caption(state.texts->Format(titleText, {state.projectName})));
    parentWidget()->installEventFilter(this);
    placeholder_ = Placeholder();
    TakeDiagram();
}

QWidget* DiagramEditor::Placeholder() {
    auto* placeholder = new QWidget;
    auto* text = new QLabel(Caption(state_.texts->Text(elsewhereText)));
    text->setWordWrap(true);
    text->setAlignment(Qt::AlignCenter);
    auto* back = new QPushButton(Caption(state_.texts->Text(backText)));
    back->setObjectName("cmdBack");
    Connect(back, &QPushButton::clicked, this, &QWidget::close);
    auto* column = new QVBoxLayout(placeholder);
    column->addStretch();
    column->addWidget(text);
    column->addWidget(back, 0, Qt::AlignCenter);
    column->addStretch();
    return placeholder;
}

void DiagramEditor::TakeDiagram() {
    Replace(diagram_, *placeholder_);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(&diagram_);
    diagram_.show();
    diagram_.setFocus();
}

void DiagramEditor::GiveDiagramBack() {
    Replace(*placeholder_, diagram_);
    delete placeholder_;
    parentWidget()->activateWindow();
    diagram_.setFocus();
}

void DiagramEditor::SaveCopy() const {
    const QPointF middle = diagram_.BoundingRect().center();
    try {
        diagram::SaveDiagram(file_, diagram_.Drawing(),
                             {.zoom = diagram_.Zoom(), .middle = {middle.x(), middle.y()}});
    } catch (const Error& error) {
        Tell(state_, state_.texts->Format(cannotSaveText, {file_}), host::Icon::Critical, error.what());
    }
}

void DiagramEditor::closeEvent(QCloseEvent* event) {
    if (!parentWidget()->isEnabled()) return event->ignore();
    event->accept();
    if (!placeholder_) return;
    GiveDiagramBack();
    SaveCopy();
}

void DiagramEditor::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else if (event->key() == Qt::Key_F1)
        ShowHelp(state_, this, help_context::diagram);
    else
        QWidget::keyPressEvent(event);
}

bool DiagramEditor::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Close && parentWidget()->isEnabled()) close();
    return QWidget::eventFilter(watched, event);
}

void EditDiagram(ComponentState& state, TDiagram& diagram, const std::string& file) {
    QWidget& window = *diagram.window();
    if (window.objectName() == name) return window.activateWindow();
    const Busy busy(window);
    auto* editor = new DiagramEditor(state, diagram, file);
    editor->showMaximized();
}

}  // namespace tessel

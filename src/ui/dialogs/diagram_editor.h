#pragma once

#include <QPointer>
#include <QWidget>
#include <string>

#include "schema/component_state.h"
#include "ui/controls/diagram.h"

namespace tessel {

// The window frmDiagramEditor, which has the diagram from the place where it stands until it closes. In that
// place there is meanwhile a button, cmdBack, that closes it. It belongs to the diagram's window and deletes
// itself.
class DiagramEditor : public QWidget {
  public:
    // What is given outlives the window; `file` is as in EditDiagram.
    DiagramEditor(ComponentState& state, TDiagram& diagram, std::string file);

  protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;  // of the diagram's window

  private:
    [[nodiscard]] QWidget* Placeholder();
    void TakeDiagram();
    void GiveDiagramBack();
    void SaveCopy() const;

    ComponentState& state_;
    TDiagram& diagram_;
    std::string file_;
    QPointer<QWidget> placeholder_;
};

}  // namespace tessel

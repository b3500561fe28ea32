#pragma once

#include <QWidget>
#include <string>

#include "schema/component_state.h"

class QLabel;
class QSplitter;
class QTableWidget;

namespace tessel {

struct OriginContent;
class FindBar;
class SourceView;

// Shows where a schema object came from: the source text or the repository object that an origin reference
// names, as plain text.
class CVRLView : public QWidget {
  public:
    explicit CVRLView(QWidget* parent = nullptr);

    void SetHost(ComponentState& state);  // the state outlives the viewer, unless Release comes first
    void Clear();                         // the same as SetCVRL of an empty text

    [[nodiscard]] const std::string& CVRL() const { return cvrl_; }  // the reference text
    void SetCVRL(const std::string& cvrl);
    [[nodiscard]] const std::string& Title() const { return title_; }  // of what is shown

    void Release();  // gives up the host and what is shown

  private:
    void Refresh();
    void Show(const OriginContent& content);
    void ShowAttributes(const OriginContent& content);

    ComponentState* state_ = nullptr;
    std::string cvrl_;
    std::string title_;
    QLabel* lblNotice_;
    QSplitter* parts_;
    QTableWidget* tblAttributes_;
    SourceView* txtSource_;
    FindBar* find_;
};

}  // namespace tessel

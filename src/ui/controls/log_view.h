#pragma once

#include <QAbstractTableModel>
#include <QWidget>

#include "host/activity_log.h"
#include "platform/text/texts.h"
#include "ui/controls/list_view.h"
#include "ui/controls/qt_settings.h"

namespace tessel {

// The activities of a log, a row each, the oldest first.
class LogModel : public QAbstractTableModel {
  public:
    enum Column { Time, Action, Result };

    // Both outlive the model.
    LogModel(const host::ActivityLog& log, const text::Texts& texts) : log_(log), texts_(texts) { Refresh(); }

    void Refresh();  // shows what was written since

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    const host::ActivityLog& log_;
    const text::Texts& texts_;
    int rows_ = 0;
};

// The list lvLog of a log's activities. It scrolls to what is written, unless the user scrolled away from the
// end. The log has one watcher, the window that the view is in: that calls Refresh when something was
// written, and shows the view where the log's state wants it.
class LogView : public ListView {
    Q_OBJECT

  public:
    // Both outlive the view.
    LogView(host::ActivityLog& log, const text::Texts& texts, QWidget* parent = nullptr);

    void Refresh() { model_.Refresh(); }

  signals:
    void HelpWanted();  // F1 was pressed in the list

  protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void FollowNewest();
    void FitColumns();  // once, when there is room for them
    void Copy() const;  // the selected rows, as lines with tabs in them
    void PopUp(const QPoint& place);

    host::ActivityLog& log_;
    const text::Texts& texts_;
    LogModel model_;
    bool followsNewest_ = true;
    bool isFitted_ = false;
};

// The window frmLog, in which the log view stands while it is not docked. Closing it makes the log invisible.
class LogWindow : public QWidget {
  public:
    // The log outlives the window, whose place is kept in the user's settings.
    LogWindow(host::ActivityLog& log, const text::Texts& texts, QWidget* owner);
    ~LogWindow() override;

    // Takes the view in and shows itself with it; nothing when that is so already.
    void Show(LogView& view);

  protected:
    void closeEvent(QCloseEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    void KeepPlace();

    host::ActivityLog& log_;
    QtSettings settings_;
};

}  // namespace tessel

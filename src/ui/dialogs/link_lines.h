#pragma once

#include <QWidget>
#include <vector>

#include "ui/rules/connecting_lines.h"

namespace tessel {

class ColumnList;

// The gap between two lists side by side, with lines from the linked rows of the left one to their partners
// in the right one. The lists, children of the same widget, outlive it.
class LinkLines : public QWidget {
  public:
    LinkLines(const ColumnList& left, const ColumnList& right);

    void SetLinks(std::vector<RowLink> links);
    // Draws the lines anew if anything has moved since they were drawn.
    void Follow();

    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    [[nodiscard]] std::vector<ConnectingLine> Lines() const;
    [[nodiscard]] ListPlace PlaceOf(const ColumnList& list) const;
    [[nodiscard]] QRect RowsArea() const;
    [[nodiscard]] QRect RowsOf(const ColumnList& list) const;
    [[nodiscard]] int Units(int pixels) const;
    [[nodiscard]] QLineF Pixels(const Line& line) const;

    const ColumnList& left_;
    const ColumnList& right_;
    std::vector<RowLink> links_;
    std::vector<ConnectingLine> drawn_;
};

}  // namespace tessel

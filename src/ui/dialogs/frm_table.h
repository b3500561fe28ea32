#pragma once

#include "ui/dialogs/dialog.h"
#include "ui/rules/table_dialog.h"

namespace tessel {

class CommentBox;
class TextLine;

// The table dialog.
class frmTable : public Dialog {
  public:
    // Shows the table's properties over `owner` and stores what the user confirms with OK. Then true, and
    // `comment` is the text of the comment box; false otherwise, also when there is no such table.
    [[nodiscard]] static bool Edit(ComponentState& state, QWidget* owner, std::int32_t tableId,
                                   std::string& comment);

  private:
    frmTable(ComponentState& state, QWidget* owner, TableDialog& rules);

    [[nodiscard]] QWidget* GeneralPage();
    [[nodiscard]] bool Confirm() override;

    TableDialog& rules_;
    TextLine* txtStorage_;
    CommentBox* txtComment_;
};

}  // namespace tessel

#include "ui/dialogs/frm_table.h"

#include <QFormLayout>
#include <QTabWidget>

#include "ui/controls/image_list.h"
#include "ui/dialogs/fields.h"
#include "ui/rules/help_contexts.h"

namespace tessel {

namespace {

constexpr int titleText = 2002;
constexpr int generalText = 2003;
constexpr int commentsText = 2004;
constexpr int timeText = 2005;
constexpr int legacyText = 2006;
constexpr int storageText = 2007;

}  // namespace

bool frmTable::Edit(ComponentState& state, QWidget* owner, std::int32_t tableId, std::string& comment) {
    auto rules = TableDialog::Open(state, tableId);
    if (!rules || !frmTable(state, owner, *rules).Run()) return false;
    comment = rules->comment;
    return true;
}

frmTable::frmTable(ComponentState& state, QWidget* owner, TableDialog& rules)
    : Dialog(state, "frmTable", help_context::tableDialog, owner),
      rules_(rules),
      txtStorage_(new TextLine(rules.storageOption)),
      txtComment_(new CommentBox("txtComment", rules.comment, Text(commentsText).remove('&'))) {
    setWindowTitle(Text(titleText));
    auto* tabs = new QTabWidget;
    tabs->setObjectName("SSTab1");
    tabs->addTab(GeneralPage(), Text(generalText));
    tabs->addTab(CommentPage(txtComment_), Text(commentsText));
    Body().addWidget(tabs);
}

QWidget* frmTable::GeneralPage() {
    txtStorage_->setObjectName("txtStorage");
    auto* page = new QWidget;
    auto* form = new QFormLayout(page);
    form->addRow(PictureLabel("imgTable", BrowserImages().Icon("table")),
                 ValueLabel("lblTableName", QString::fromStdString(rules_.tableName)));
    form->addRow(CaptionLabel("lblTime", Text(timeText)),
                 ValueLabel("lblTimeStamp", rules_.created ? LongTime(*rules_.created) : QString()));
    form->addRow(CaptionLabel("lblLegacy", Text(legacyText)),
                 ValueLabel("lblLegacyName", QString::fromStdString(rules_.legacyName)));
    form->addRow(CaptionLabel("Label1", Text(storageText), txtStorage_), txtStorage_);
    return page;
}

bool frmTable::Confirm() {
    rules_.storageOption = txtStorage_->Text();
    rules_.comment = txtComment_->Text();
    return rules_.Write();
}

}  // namespace tessel

#include "ui/controls/origin_viewer.h"

#include <QHeaderView>
#include <QLabel>
#include <QShortcut>
#include <QSplitter>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/controls/find_bar.h"
#include "ui/controls/list_delegate.h"
#include "ui/controls/source_view.h"
#include "ui/rules/origin_content.h"

namespace tessel {

namespace {

constexpr int sourceText = 2160;
constexpr int attributesText = 2161;
constexpr int findText = 2162;
constexpr int notFoundText = 2163;

QString Shown(const std::string& text) { return QString::fromStdString(text); }

QTableWidget* AttributeTable() {
    auto* table = new QTableWidget(0, 2);
    table->setObjectName("tblAttributes");
    table->horizontalHeader()->hide();
    table->horizontalHeader()->setStretchLastSection(true);
    table->verticalHeader()->hide();
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setTabKeyNavigation(false);
    table->setItemDelegate(new ListDelegate(table));
    return table;
}

}  // namespace

CVRLView::CVRLView(QWidget* parent)
    : QWidget(parent),
      lblNotice_(new QLabel),
      parts_(new QSplitter(Qt::Vertical)),
      tblAttributes_(AttributeTable()),
      txtSource_(new SourceView),
      find_(new FindBar(*txtSource_, this)) {
    setObjectName("CVRLView");
    setFocusProxy(txtSource_);
    txtSource_->setObjectName("txtSource");
    lblNotice_->setObjectName("lblNotice");
    lblNotice_->setTextFormat(Qt::PlainText);
    lblNotice_->setWordWrap(true);
    lblNotice_->setMargin(6);
    parts_->addWidget(tblAttributes_);
    parts_->addWidget(txtSource_);
    parts_->setStretchFactor(1, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(lblNotice_);
    layout->addWidget(parts_, 1);
    layout->addWidget(find_);
    auto* find = new QShortcut(QKeySequence::Find, this);
    find->setContext(Qt::WidgetWithChildrenShortcut);
    connect(find, &QShortcut::activated, find_, &FindBar::Open);
    Show({});
}

void CVRLView::SetHost(ComponentState& state) {
    state_ = &state;
    const text::Texts& texts = *state.texts;
    txtSource_->setAccessibleName(Shown(texts.Text(sourceText)));
    tblAttributes_->setAccessibleName(Shown(texts.Text(attributesText)));
    find_->SetTexts(Shown(texts.Text(findText)), Shown(texts.Text(notFoundText)));
    Refresh();
}

void CVRLView::Clear() { SetCVRL(""); }

void CVRLView::SetCVRL(const std::string& cvrl) {
    cvrl_ = cvrl;
    Refresh();
}

void CVRLView::Release() {
    state_ = nullptr;
    Clear();
}

void CVRLView::Refresh() { Show(state_ ? ReadOrigin(*state_, cvrl_) : OriginContent()); }

void CVRLView::Show(const OriginContent& content) {
    title_ = content.title;
    lblNotice_->setText(Shown(content.notice));
    lblNotice_->setVisible(!content.notice.empty());
    ShowAttributes(content);
    txtSource_->ShowText(Shown(content.text), content.line);
}

void CVRLView::ShowAttributes(const OriginContent& content) {
    tblAttributes_->setVisible(!content.attributes.empty());
    tblAttributes_->setRowCount(0);
    for (const auto& [name, value] : content.attributes) {
        const int row = tblAttributes_->rowCount();
        tblAttributes_->insertRow(row);
        tblAttributes_->setItem(row, 0, new QTableWidgetItem(Shown(name)));
        tblAttributes_->setItem(row, 1, new QTableWidgetItem(Shown(value)));
    }
    tblAttributes_->resizeColumnToContents(0);
    tblAttributes_->resizeRowsToContents();
    const int whole = tblAttributes_->verticalHeader()->length() + 2 * tblAttributes_->frameWidth();
    const int height = std::min(whole, parts_->height() / 2);
    tblAttributes_->setMaximumHeight(whole);
    parts_->setSizes({height, parts_->height() - height});
}

}  // namespace tessel

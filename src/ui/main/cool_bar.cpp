#include "ui/main/cool_bar.h"

#include <QHBoxLayout>
#include <QTextDocument>
#include <algorithm>

namespace tessel {

namespace {

constexpr int progressWidth = 220;
constexpr int widestCaption = 320;
constexpr int margin = 6;

}  // namespace

CoolBar::CoolBar(const QString& progressCaption)
    : tbToolbar_(new QToolBar(this)),
      lblProgress_(new QLabel(progressCaption)),
      pbProgress_(new QProgressBar) {
    setObjectName("cbCoolBar");
    tbToolbar_->setObjectName("tbToolbar");
    lblProgress_->setObjectName("lblProgress");
    lblProgress_->setTextFormat(Qt::PlainText);
    lblProgress_->setMinimumWidth(1);  // it gives way before the window grows
    pbProgress_->setObjectName("pbProgress");
    pbProgress_->setFixedWidth(progressWidth);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, margin, 0);
    row->addWidget(tbToolbar_, 1);
    row->addWidget(lblProgress_);
    row->addWidget(pbProgress_);
    SetBandVisible(false);
}

void CoolBar::ShowProgress(const QString& caption, int total) {
    const QFontMetrics letters = lblProgress_->fontMetrics();
    lblProgress_->setText(letters.elidedText(caption.simplified(), Qt::ElideRight, widestCaption));
    lblProgress_->setToolTip(Qt::convertFromPlainText(caption, Qt::WhiteSpaceNormal));
    pbProgress_->setRange(0, std::max(total, 1));
    pbProgress_->setValue(0);
    SetBandVisible(true);
}

void CoolBar::Advance(int length) { pbProgress_->setValue(pbProgress_->value() + length); }

void CoolBar::HideProgress() {
    lblProgress_->clear();
    SetBandVisible(false);
}

void CoolBar::SetBandVisible(bool visible) {
    lblProgress_->setVisible(visible);
    pbProgress_->setVisible(visible);
}

}  // namespace tessel

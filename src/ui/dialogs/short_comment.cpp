#include "ui/dialogs/short_comment.h"

namespace tessel {

namespace {

constexpr int lines = 3;

}  // namespace

ShortComment::ShortComment(const char* name, const std::string& text, const QString& accessibleName)
    : CommentBox(name, text, accessibleName) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize ShortComment::sizeHint() const {
    const int margins = 2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
    return {CommentBox::sizeHint().width(), lines * fontMetrics().lineSpacing() + margins};
}

}  // namespace tessel

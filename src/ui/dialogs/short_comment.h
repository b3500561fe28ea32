#pragma once

#include "ui/dialogs/fields.h"

namespace tessel {

// A comment box that is a few lines high.
class ShortComment : public CommentBox {
  public:
    ShortComment(const char* name, const std::string& text, const QString& accessibleName);

    [[nodiscard]] QSize sizeHint() const override;
};

}  // namespace tessel

#pragma once

#include <string>

#include "columns.h"
#include "texts.h"

namespace tessel::layout {

// What a column's comment says: the picture and the usage as they are written, why the type is what it is,
// and what else the description holds. One line.
[[nodiscard]] std::string CommentOf(const Field& field, const Column& column, const std::string& reason,
                                    Language language);

// The picture and the usage as they are written, such as "PIC S9(7)V99 COMP-3".
[[nodiscard]] std::string WrittenPicture(const Item& item);

}  // namespace tessel::layout

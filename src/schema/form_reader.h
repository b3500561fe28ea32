#pragma once

#include "host/questions.h"

namespace tessel {

// A dialog as an add-on describes it, a keyed collection of
//   "caption"  its title
//   "text"     a line above the fields (may be left out)
//   "ok"       the caption of the button that confirms (may be left out)
//   "fields"   a collection of the fields under their keys, each a collection of
//     "kind"     "text", "number", "check", "choice", "openFile", "saveFile", "note" or "list"
//     "caption"  the label, with "&" before the letter that reaches the field
//     "value"    what the field holds at first: a whole number, a Boolean, one of the choices, or else
//                a text. One that does not convert counts as left out, which is 0, False, the first
//                choice, or empty
//     "choices"  of a choice: a collection of the captions under their values
//     "filter"   of a file: which files are offered, such as "SQL scripts (*.sql)"
//     "columns"  of a list: a collection of the captions
//     "rows"     of a list: a collection of the rows, each a collection of texts
// A text that is Null is empty. Throws ErrorKind::Argument, naming the field and the key, for what is
// none of these.
[[nodiscard]] host::Form ReadForm(const Collection& form);

}  // namespace tessel

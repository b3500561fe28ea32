#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tessel/value.h"

// The schema editor's own SQL. A statement is one select, insert, update or delete. Beyond plain SQL:
//   delete from T X where ...     an alias without "as"
//   Unique, i.Unique              the field of that name, which is no keyword here
//   x = null, x <> null           "is null" and "is not null"; in the set list of an update "=" still assigns
//   'a' & Chr(124) & 'b'          text joined with &, characters by their number
//   True, False                   1 and 0
// Two minus signs or a slash and a star never begin a comment. A name may stand in double quotes or brackets;
// text only in single quotes.
namespace tessel::db {

// A statement as the engine runs it. Constants have become parameters, so that statements which differ only
// in their values have one text; those in a select list, an order or a grouping stay, for there they decide
// names or places.
struct Rewritten {
    std::string text;
    std::vector<Value> parameters;  // int32, double or text, in the order of the question marks
};

// Throws ErrorKind::Sql for a second statement, any other kind of statement, an open text or name, a
// parameter mark, a NUL and bytes that are no UTF-8.
[[nodiscard]] Rewritten Rewrite(std::string_view sql);

}  // namespace tessel::db

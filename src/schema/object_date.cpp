#include "schema/object_date.h"

#include "tessel/convert.h"

namespace tessel {

DateTime ObjectDate(const host::RepositoryObject& object) {
    for (const char* attribute : {"Modified", "Created"}) {
        const Value date = object.Attribute(attribute);
        if (!date.IsNull() && !date.IsEmptyText()) return ToDate(date);
    }
    return DateTime{};
}

}  // namespace tessel

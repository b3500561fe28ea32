#include "lines/list_combo.h"

#include "platform/component/member_table.h"

namespace tessel {

void ListCombo::Clear() {
    items_.clear();
    selected_ = -1;
}

Value ListCombo::Call(std::string_view member, CallKind kind, Arguments& arguments) {
    static const MemberTable<ListCombo> none{};
    return none.Call(*this, member, kind, arguments);
}

}  // namespace tessel

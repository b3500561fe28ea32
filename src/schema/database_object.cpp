#include "schema/database_object.h"

#include "platform/component/member_table.h"

namespace tessel {

namespace {

constexpr db::QueryLimit mostAtOnce{.rows = 1'000'000, .bytes = 64 * 1024 * 1024};

}  // namespace

Value DatabaseObject::Call(std::string_view member, CallKind kind, Arguments& arguments) {
    static const MemberTable<DatabaseObject> members{
        Getter<&DatabaseObject::Name>("Name"),
        Method<&DatabaseObject::Execute>("Execute"),
        Getter<&DatabaseObject::RecordsAffected>("RecordsAffected"),
        Method<&DatabaseObject::Select>("Select"),
    };
    return members.Call(*this, member, kind, arguments);
}

std::shared_ptr<Collection> DatabaseObject::Select(const std::string& sql) {
    auto rows = std::make_shared<Collection>();
    for (auto query = database_->Select(sql, mostAtOnce); query.Next();) {
        auto row = std::make_shared<Collection>();
        for (const auto& field : query.Fields())
            if (!row->HasKey(field)) row->Add(query[field], field);
        rows->Add(row, std::to_string(rows->Count() + 1));
    }
    return rows;
}

}  // namespace tessel

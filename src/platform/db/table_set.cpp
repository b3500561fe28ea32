#include "platform/db/table_set.h"

#include <type_traits>
#include <variant>

#include "platform/db/table_set_state.h"
#include "platform/text/utf8.h"
#include "tessel/convert.h"

namespace tessel::db {
namespace {

[[noreturn]] void RefuseUse(const TableInfo& table, const std::string& reason) {
    throw DatabaseError(ErrorKind::Sql,
                        "The record set on the table " + table.name + " has no " + reason + ".");
}

// The value as the engine stores it in the field.
Value StoredForm(const Value& value, const TableInfo::Field& field, const std::string& place) {
    return std::visit(
        [&](const auto& content) -> Value {
            using T = std::decay_t<decltype(content)>;
            if constexpr (std::is_same_v<T, Null> || std::is_same_v<T, std::string>) {
                return content;
            } else if constexpr (std::is_same_v<T, DateTime>) {
                return ToText(content);
            } else if constexpr (std::is_arithmetic_v<T>) {
                if (field.isText) return ToText(content);
                if constexpr (std::is_same_v<T, double>) return content;
                return static_cast<std::int32_t>(content);
            } else {
                throw DatabaseError(ErrorKind::Argument, "The field " + place +
                                                             " takes a text, a number, a Boolean, a "
                                                             "date or Null only.");
            }
        },
        value.Contents());
}

void CheckText(const std::string& text, int size, const std::string& place) {
    std::string fault;
    if (!text::IsValidUtf8(text)) fault = "is not UTF-8";
    if (text.find('\0') != std::string::npos) fault = "holds a NUL character";
    if (size > 0 && text.size() > static_cast<std::size_t>(size) &&
        text::CharacterCount(text) > static_cast<std::size_t>(size))
        fault = "is longer than " + std::to_string(size) + " characters";
    if (!fault.empty())
        throw DatabaseError(ErrorKind::Constraint, "The text for the field " + place + " " + fault + ".");
}

std::string Quoted(const std::string& name) { return "[" + name + "]"; }

}  // namespace

const TableSet::State::Row& TableSet::State::Current() const {
    if (!current) RefuseUse(*table, "current row");
    return *current;
}

void TableSet::State::RequirePending() const {
    if (pending == Pending::None) RefuseUse(*table, "pending row");
}

bool TableSet::State::ReadCurrent(const std::string& condition, const std::vector<Value>& values) {
    current.reset();
    const std::string sql = "select rowid,* from " + Quoted(table->name) + " where " + condition + " limit 1";
    Statement statement = engine.Prepare(sql);
    statement.BindAll(values);
    if (!statement.Step()) return false;
    current.emplace();
    current->rowId = statement.Field(0);
    for (std::size_t i = 0; i < table->fields.size(); ++i)
        current->values.push_back(statement.Field(static_cast<int>(i) + 1));
    return true;
}

void TableSet::State::Insert() {
    std::string names;
    std::string marks;
    std::vector<Value> values;
    for (std::size_t i = 0; i < changes.size(); ++i) {
        if (!changes[i]) continue;
        names += (values.empty() ? "" : ",") + Quoted(table->fields[i].name);
        marks += values.empty() ? "?" : ",?";
        values.push_back(*changes[i]);
    }
    const std::string given = values.empty() ? " default values" : "(" + names + ") values (" + marks + ")";
    const std::string sql = "insert into " + Quoted(table->name) + given;
    Statement statement = engine.Prepare(sql);
    statement.BindAll(values);
    statement.Step();
}

void TableSet::State::Update() {
    std::string assignments;
    std::vector<Value> values;
    for (std::size_t i = 0; i < changes.size(); ++i) {
        if (!changes[i]) continue;
        assignments += (values.empty() ? "" : ",") + Quoted(table->fields[i].name) + "=?";
        values.push_back(*changes[i]);
    }
    if (values.empty()) return;
    const Value rowId = Current().rowId;
    values.push_back(rowId);
    const std::string sql = "update " + Quoted(table->name) + " set " + assignments + " where rowid=?";
    {
        Statement statement = engine.Prepare(sql);
        statement.BindAll(values);
        statement.Step();
    }
    if (!ReadCurrent("rowid=?", {rowId})) RefuseUse(*table, "current row any more, for it was deleted");
}

TableSet::TableSet(std::unique_ptr<State> state) : state_(std::move(state)) {}
TableSet::~TableSet() = default;
TableSet::TableSet(TableSet&&) noexcept = default;

void TableSet::SetIndex(std::string_view index) { state_->index = &state_->table->IndexNamed(index); }

bool TableSet::Seek(std::initializer_list<Value> values) {
    const TableInfo& table = *state_->table;
    Cancel();
    state_->current.reset();
    if (!state_->index) RefuseUse(table, "current index to seek by");
    if (values.size() == 0 || values.size() > state_->index->fields.size())
        RefuseUse(table, "index of as many fields as the values sought");
    std::string condition;
    std::string order;
    std::vector<Value> sought;
    for (const Value& value : values) {
        const TableInfo::Field& field = table.fields[state_->index->fields[sought.size()]];
        condition += (sought.empty() ? "" : " and ") + Quoted(field.name) + "=?";
        sought.push_back(StoredForm(value, field, table.name + "." + field.name));
    }
    for (const std::size_t field : state_->index->fields)
        order += (order.empty() ? "" : ",") + Quoted(table.fields[field].name);
    return state_->ReadCurrent(condition + " order by " + order, sought);
}

void TableSet::AddNew() {
    Cancel();
    state_->changes.assign(state_->table->fields.size(), std::nullopt);
    if (const auto identifier = state_->table->identifier)
        state_->changes[*identifier] = state_->engine.ReserveIdentifier(state_->table->name);
    state_->pending = State::Pending::New;
}

void TableSet::Edit() {
    static_cast<void>(state_->Current());
    state_->changes.assign(state_->table->fields.size(), std::nullopt);
    state_->pending = State::Pending::Change;
}

void TableSet::Set(std::string_view field, const Value& value) {
    state_->RequirePending();
    const std::size_t position = state_->table->FieldPosition(field);
    const TableInfo::Field& info = state_->table->fields[position];
    const std::string place = state_->table->name + "." + info.name;
    Value stored = StoredForm(value, info, place);
    if (const auto* text = stored.As<std::string>()) CheckText(*text, info.size, place);
    state_->changes[position] = std::move(stored);
}

Value TableSet::Get(std::string_view field) const {
    const std::size_t position = state_->table->FieldPosition(field);
    if (state_->pending != State::Pending::None && state_->changes[position])
        return *state_->changes[position];
    if (state_->pending == State::Pending::New) return Null();
    return state_->Current().values[position];
}

void TableSet::Save() {
    state_->RequirePending();
    if (state_->pending == State::Pending::New) {
        state_->Insert();
    } else {
        state_->Update();
    }
    state_->pending = State::Pending::None;
}

void TableSet::Cancel() { state_->pending = State::Pending::None; }

int TableSet::FieldSize(std::string_view field) const {
    return state_->table->fields[state_->table->FieldPosition(field)].size;
}

}  // namespace tessel::db

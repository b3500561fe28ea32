#include "ui/rules/column_dialog.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "schema/identifiers.h"
#include "schema/sql_text.h"
#include "tessel/convert.h"
#include "ui/rules/column_defaults.h"
#include "ui/rules/column_row.h"
#include "ui/rules/default_value.h"
#include "ui/rules/icon_keys.h"
#include "ui/rules/messages.h"

namespace tessel {

namespace {

constexpr int illegalColumnText = 2338;
constexpr int noTypeText = 2339;
constexpr int precisionAboveText = 2340;
constexpr int precisionBelowText = 2341;
constexpr int scaleAboveText = 2342;
constexpr int precisionBelowScaleText = 2343;
constexpr int illegalDefaultText = 2344;
constexpr int notWrittenText = 2345;
constexpr int defaultsNotWrittenText = 2346;
constexpr int propertiesActivity = 2446;
constexpr int defaultsActivity = 2449;

// The number of a text of digits; one that is too large for 32 bits counts as the largest.
std::int32_t NumberIn(const std::string& digits) {
    std::int32_t number = 0;
    const auto failure = std::from_chars(digits.data(), digits.data() + digits.size(), number).ec;
    return failure == std::errc::result_out_of_range ? std::numeric_limits<std::int32_t>::max() : number;
}

// Puts the digits of `typed` into the field; returns where the caret then stands.
std::int32_t TakeDigits(std::string& field, const std::string& typed, std::int32_t caret) {
    Value selStart = caret;
    field = SQLInteger(typed, selStart);
    return ToInt32(selStart);
}

}  // namespace

std::optional<ColumnDialog> ColumnDialog::Open(ComponentState& state, const LocaleConversions& locale,
                                               std::int32_t columnID, const std::string& iconKey) {
    auto row = state.Database().Select("select C.*, T.TableName from Columns C, Tables T  where ColumnId = " +
                                       std::to_string(columnID) + " and C.TabID = T.TabId");
    if (!row.Next()) {
        Tell(state, state.texts->Text(illegalColumnText), host::Icon::Critical);
        return std::nullopt;
    }
    ColumnDialog dialog(state, locale, columnID);
    dialog.columnName_ = NullToText(row["ColumnName"]);
    dialog.tableName_ = NullToText(row["TableName"]);
    dialog.comment_ = NullToText(row["Comments"]);
    dialog.withDefault_ = !row["DefaultValue"].IsNull();
    dialog.default_ = NullToText(row["DefaultValue"]);
    dialog.allowNulls_ = row.Boolean("IsNullable");
    dialog.isKey_ = iconKey == icon::key;
    dialog.precision_ = NullToText(row["Precision"]);
    dialog.scale_ = NullToText(row["Scale"]);
    dialog.SelectTypeID(row.Integer("TypeID"));
    return dialog;
}

void ColumnDialog::SelectTypeID(std::int32_t typeID) {
    const auto& names = TypeNames();
    const auto name = std::ranges::find(names, state_.sqlTypes.GetSqlTypeInfo(typeID).name);
    if (name != names.end()) SelectType(static_cast<std::size_t>(name - names.begin()));
}

const SqlTypeInfo& ColumnDialog::Limits() const {
    static const SqlTypeInfo unknown;
    return type_ ? state_.sqlTypes.GetSqlTypeInfo(TypeID()) : unknown;
}

std::int32_t ColumnDialog::TypeID() const { return state_.sqlTypes.SqlTypeIdByName(TypeNames().at(*type_)); }

void ColumnDialog::SelectType(std::optional<std::size_t> type) {
    type_ = type;
    if (!type_) return;
    if (!IsPrecisionEnabled())
        precision_ = "0";
    else if (precision_ == "0")
        precision_ = "1";
    if (!IsScaleEnabled()) scale_ = "0";
}

std::int32_t ColumnDialog::EditPrecision(const std::string& text, std::int32_t caret) {
    return TakeDigits(precision_, text, caret);
}

std::int32_t ColumnDialog::EditScale(const std::string& text, std::int32_t caret) {
    return TakeDigits(scale_, text, caret);
}

bool ColumnDialog::IsValid() {
    const text::Texts& texts = *state_.texts;
    if (!type_) return Refuse(Field::Type, texts.Text(noTypeText), FocusMoves::AfterMessage);
    if (precision_.empty()) precision_ = "0";
    if (scale_.empty()) scale_ = "0";
    const auto& [typeName, maxPrecision, maxScale] = Limits();
    const std::int32_t precision = NumberIn(precision_);
    const std::int32_t scale = NumberIn(scale_);
    if (maxPrecision != 0 && precision > maxPrecision)
        return Refuse(Field::Precision, texts.Format(precisionAboveText, {std::to_string(maxPrecision)}),
                      FocusMoves::AfterMessage);
    if (maxPrecision != 0 && precision < 1)
        return Refuse(Field::Precision, texts.Text(precisionBelowText), FocusMoves::AfterMessage);
    if (maxScale != 0 && scale > maxScale)
        return Refuse(Field::Scale, texts.Format(scaleAboveText, {std::to_string(maxScale)}),
                      FocusMoves::AfterMessage);
    if (maxPrecision != 0 && maxScale != 0 && precision < scale)
        return Refuse(Field::Precision, texts.Text(precisionBelowScaleText), FocusMoves::BeforeMessage);
    if (withDefault_ && !IsDefaultOf(typeName, default_, locale_))
        return Refuse(Field::Default, texts.Text(illegalDefaultText), FocusMoves::BeforeMessage);
    return true;
}

bool ColumnDialog::Refuse(Field field, const std::string& text, FocusMoves when) {
    const auto focus = [&](FocusMoves now) {
        if (focus_ && now == when) focus_(field);
    };
    focus(FocusMoves::BeforeMessage);
    Tell(state_, text, field == Field::Default ? host::Icon::Critical : host::Icon::Information);
    focus(FocusMoves::AfterMessage);
    return false;
}

bool ColumnDialog::SaveAsDefault() {
    return IsValid() && WriteOrTell(state_,
                                    {.activity = defaultsActivity,
                                     .subject = columnName_,
                                     .complaint = state_.texts->Text(defaultsNotWrittenText)},
                                    [this] {
                                        WriteColumnDefaults(state_, {.typeID = TypeID(),
                                                                     .precision = precision_,
                                                                     .scale = scale_,
                                                                     .isNullable = allowNulls_,
                                                                     .withDefault = withDefault_,
                                                                     .defaultValue = default_});
                                        return true;
                                    });
}

bool ColumnDialog::OK() {
    return IsValid() &&
           WriteOrTell(state_,
                       {.activity = propertiesActivity,
                        .subject = columnName_,
                        .complaint = state_.texts->Format(notWrittenText, {columnName_})},
                       [this] {
                           return WorkspaceOf(state_)->ColumnUpdate(
                               columnID_, Missing{}, TypeID(), NumberIn(precision_), NumberIn(scale_),
                               allowNulls_, comment_, withDefault_ ? Value(default_) : Value());
                       });
}

std::string ColumnDialog::IconKey() const { return ColumnIcon(isKey_, allowNulls_); }

std::string ColumnDialog::TypeText() const {
    return state_.sqlTypes.SqlTypeText(TypeID(), NumberIn(precision_), NumberIn(scale_));
}

}  // namespace tessel

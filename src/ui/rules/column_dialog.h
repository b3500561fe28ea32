#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "schema/component_state.h"
#include "ui/rules/locale_conversions.h"

namespace tessel {

// The fields of the column dialog and what each of the user's actions does to them. State and locale outlive
// it.
class ColumnDialog {
  public:
    enum class Field { Type, Precision, Scale, Default };

    // The column as the database holds it; nothing, after a message, when there is none. `iconKey` is the
    // icon that the caller shows for it: "key" marks a column of the primary key.
    [[nodiscard]] static std::optional<ColumnDialog> Open(ComponentState& state,
                                                          const LocaleConversions& locale,
                                                          std::int32_t columnID, const std::string& iconKey);

    // Is told which field gets the focus while an input is refused, before or after the message about it.
    void WatchFocus(std::function<void(Field)> watcher) { focus_ = std::move(watcher); }

    // The fields.
    [[nodiscard]] std::int32_t ColumnID() const { return columnID_; }
    [[nodiscard]] const std::string& ColumnName() const { return columnName_; }
    [[nodiscard]] const std::string& TableName() const { return tableName_; }
    [[nodiscard]] bool IsKey() const { return isKey_; }
    [[nodiscard]] const std::vector<std::string>& TypeNames() const { return state_.sqlTypes.Names(); }
    [[nodiscard]] std::optional<std::size_t> Type() const { return type_; }  // in TypeNames
    [[nodiscard]] const std::string& Precision() const { return precision_; }
    [[nodiscard]] const std::string& Scale() const { return scale_; }
    [[nodiscard]] bool IsPrecisionEnabled() const { return Limits().maxPrecision != 0; }
    [[nodiscard]] bool IsScaleEnabled() const { return Limits().maxScale != 0; }
    [[nodiscard]] bool AllowNulls() const { return allowNulls_; }
    [[nodiscard]] bool WithDefault() const { return withDefault_; }
    [[nodiscard]] bool IsDefaultEnabled() const { return withDefault_; }
    [[nodiscard]] const std::string& Default() const { return default_; }
    [[nodiscard]] const std::string& Comment() const { return comment_; }

    // What the user does. A caret is a position in characters; the one that is returned is where it stands
    // after everything but digits was dropped.
    void SelectType(std::optional<std::size_t> type);
    [[nodiscard]] std::int32_t EditPrecision(const std::string& text, std::int32_t caret);
    [[nodiscard]] std::int32_t EditScale(const std::string& text, std::int32_t caret);
    void SetAllowNulls(bool checked) { allowNulls_ = checked; }
    void SetWithDefault(bool checked) { withDefault_ = checked; }
    void EditDefault(const std::string& text) { default_ = text; }
    void EditComment(const std::string& text) { comment_ = text; }

    // Stores the fields as the project's defaults for new columns; false, after a message, when the input is
    // not valid or cannot be written.
    bool SaveAsDefault();
    // Writes the column; false, after a message, when the dialog stays open.
    [[nodiscard]] bool OK();

    // What the caller shows of the column once it is written.
    [[nodiscard]] std::string IconKey() const;
    [[nodiscard]] std::string TypeText() const;

  private:
    enum class FocusMoves { BeforeMessage, AfterMessage };

    ColumnDialog(ComponentState& state, const LocaleConversions& locale, std::int32_t columnID)
        : state_(state), locale_(locale), columnID_(columnID) {}

    [[nodiscard]] const SqlTypeInfo& Limits() const;  // the unknown type while none is selected
    [[nodiscard]] std::int32_t TypeID() const;        // of the selected type
    void SelectTypeID(std::int32_t typeID);           // none when the catalogue lacks it
    [[nodiscard]] bool IsValid();
    bool Refuse(Field field, const std::string& text, FocusMoves when);  // always false

    ComponentState& state_;
    const LocaleConversions& locale_;
    std::function<void(Field)> focus_;
    std::int32_t columnID_;
    std::string columnName_;
    std::string tableName_;
    bool isKey_ = false;
    std::optional<std::size_t> type_;
    std::string precision_;
    std::string scale_;
    bool allowNulls_ = false;
    bool withDefault_ = false;
    std::string default_;
    std::string comment_;
};

}  // namespace tessel

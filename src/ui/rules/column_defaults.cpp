#include "ui/rules/column_defaults.h"

#include "schema/project_settings.h"
#include "tessel/convert.h"

namespace tessel {

namespace {

constexpr const char* typeName = "DefTypeID";
constexpr const char* precisionName = "DefPrec";
constexpr const char* scaleName = "DefScale";
constexpr const char* nullableName = "DefIsNull";
constexpr const char* withDefaultName = "DefWithDefault";
constexpr const char* defaultName = "DefDefault";

}  // namespace

ColumnDefaults ReadColumnDefaults(ComponentState& state) {
    const auto setting = [&](const char* name, const Value& absent) {
        const std::string value = GetProjectSettings(state.Database(), name);
        return value.empty() ? absent : Value(value);
    };
    const ColumnDefaults absent;
    return {.typeID = ToInt32(setting(typeName, absent.typeID)),
            .precision = ToText(setting(precisionName, absent.precision)),
            .scale = ToText(setting(scaleName, absent.scale)),
            .isNullable = ToBoolean(setting(nullableName, absent.isNullable)),
            .withDefault = ToBoolean(setting(withDefaultName, absent.withDefault)),
            .defaultValue = ToText(setting(defaultName, absent.defaultValue))};
}

void WriteColumnDefaults(ComponentState& state, const ColumnDefaults& defaults) {
    const auto set = [&](const char* name, const Value& value) {
        SetProjectSettings(state.Database(), name, ToText(value));
    };
    set(typeName, defaults.typeID);
    set(precisionName, defaults.precision);
    set(scaleName, defaults.scale);
    set(nullableName, defaults.isNullable);
    set(withDefaultName, defaults.withDefault);
    set(defaultName, defaults.defaultValue);
}

}  // namespace tessel

#include "ui/rules/default_value.h"

#include <array>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <limits>

#include "platform/text/utf8.h"

namespace tessel {

namespace {

enum class Kind { Whole16, Whole32, Single, Double, Date, Any };

struct NamedKind {
    const char* typeName;
    Kind kind;
};

constexpr std::array kinds{
    NamedKind{"TINYINT", Kind::Whole16}, NamedKind{"SMALLINT", Kind::Whole16},
    NamedKind{"INTEGER", Kind::Whole32}, NamedKind{"NUMERIC", Kind::Single},
    NamedKind{"DECIMAL", Kind::Single},  NamedKind{"FLOAT", Kind::Single},
    NamedKind{"REAL", Kind::Single},     NamedKind{"DOUBLE", Kind::Double},
    NamedKind{"DATE", Kind::Date},       NamedKind{"TIME", Kind::Date},
    NamedKind{"TIMESTAMP", Kind::Date},
};

Kind KindOf(const std::string& typeName) {
    for (const auto& [name, kind] : kinds)
        if (text::SameText(name, typeName)) return kind;
    return Kind::Any;
}

template <typename Integer>
bool RoundsTo(double number) {
    const double rounded = std::nearbyint(number);
    return rounded >= std::numeric_limits<Integer>::min() && rounded <= std::numeric_limits<Integer>::max();
}

bool IsInRange(Kind kind, double number) {
    switch (kind) {
        case Kind::Whole16:
            return RoundsTo<std::int16_t>(number);
        case Kind::Whole32:
            return RoundsTo<std::int32_t>(number);
        case Kind::Single:
            return std::fabs(number) <= FLT_MAX;
        default:
            return true;
    }
}

}  // namespace

bool IsDefaultOf(const std::string& typeName, const std::string& text, const LocaleConversions& locale) {
    const Kind kind = KindOf(typeName);
    if (kind == Kind::Any) return true;
    if (kind == Kind::Date) return locale.IsDate(text);
    const auto number = locale.ToNumber(text);
    return number && IsInRange(kind, *number);
}

}  // namespace tessel

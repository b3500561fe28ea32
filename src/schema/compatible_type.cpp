#include <charconv>
#include <limits>

#include "schema/workspace.h"

namespace tessel {

namespace {

constexpr std::int32_t character = 1;
constexpr std::int32_t decimal = 3;
constexpr std::int32_t longInteger = 4;
constexpr std::int32_t shortInteger = 5;

// What a picture says about its field.
struct PictureCounts {
    std::int64_t positions = 0;
    std::int64_t integerDigits = 0;
    std::int64_t decimalDigits = 0;
    bool hasPoint = false;
    bool isNumeric = true;

    void AddDigits(std::int64_t count) { (hasPoint ? decimalDigits : integerDigits) += count; }
};

constexpr std::int64_t longest = std::numeric_limits<std::int32_t>::max();

// The number at the front of `text`, 0 when there is none.
std::int64_t LeadingNumber(std::string_view text) {
    std::uint32_t number = 0;  // takes no sign
    const auto failure = std::from_chars(text.data(), text.data() + text.size(), number).ec;
    return failure == std::errc::result_out_of_range ? longest : number;
}

PictureCounts Count(std::string_view picture) {
    PictureCounts counts;
    for (std::size_t i = 0; i < picture.size(); ++i) {
        switch (picture[i]) {
            case 'S':
                ++counts.positions;
                break;
            case '9':
                ++counts.positions;
                counts.AddDigits(1);
                break;
            case '.':
                ++counts.positions;
                counts.hasPoint = true;
                break;
            case 'V':
                counts.hasPoint = true;
                break;
            case 'X':
            case 'A':
                ++counts.positions;
                counts.isNumeric = false;
                break;
            case '(': {
                // The count stands in place of the single occurrence before it.
                const std::size_t close = std::min(picture.find(')', i), picture.size());
                const std::int64_t more = LeadingNumber(picture.substr(i + 1, close - i - 1)) - 1;
                counts.positions += more;
                if (counts.isNumeric) counts.AddDigits(more);
                i = close;
                break;
            }
            default:
                break;
        }
    }
    return counts;
}

std::int32_t Length(std::int64_t count) {
    if (count > longest) throw Error(ErrorKind::Conversion, "The picture is longer than a field can be.");
    return static_cast<std::int32_t>(count);
}

}  // namespace

bool Workspace::GetCompatibleType(std::int32_t length, std::int32_t fraction, const std::string& picture,
                                  const std::string&, std::int32_t& sqlType, std::int32_t& sqlScale,
                                  std::int32_t& sqlPrec) {
    const auto info = [this](std::int32_t typeID) { return state_.sqlTypes.GetSqlTypeInfo(typeID); };
    if (sqlType != 0) {
        if (info(sqlType).maxPrecision == 0) return true;
        if (length == 0) return false;
        sqlScale = length;
        sqlPrec = fraction;
        return true;
    }
    if (picture.empty()) return false;

    const PictureCounts counts = Count(picture);
    const std::int64_t digits = counts.integerDigits + counts.decimalDigits;
    sqlPrec = 0;
    if (!counts.isNumeric) {
        sqlType = character;
        sqlScale = Length(counts.positions);
    } else if (!counts.hasPoint) {
        sqlScale = Length(counts.integerDigits);
        sqlType = counts.positions <= info(shortInteger).maxScale  ? shortInteger
                  : counts.positions <= info(longInteger).maxScale ? longInteger
                                                                   : decimal;
    } else {
        sqlScale = Length(digits);
        const bool fits = digits <= info(decimal).maxScale;
        sqlType = fits ? decimal : character;
        if (fits) sqlPrec = Length(counts.decimalDigits);
    }
    return true;
}

}  // namespace tessel

#include "column_type.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <optional>

namespace tessel::layout {

namespace {

constexpr std::int32_t characterType = 1;  // what GetCompatibleType makes of a text
constexpr std::int64_t signAndPoint = 2;
constexpr std::int64_t indexDigits = 9;

// The digits of the largest number in so many bytes.
constexpr std::array<int, 9> digitsOfBytes{0, 3, 5, 8, 10, 13, 15, 17, 20};
constexpr int largestSigned = 19;

int BytesOfDigits(std::int64_t digits) { return digits < 5 ? 2 : digits < 10 ? 4 : 8; }

bool IsNative(const Item& item) { return item.usage && item.usage->usage == Usage::Native; }

// A native binary number holds whatever its bytes hold, not only the digits of its picture.
std::optional<Picture> NativePicture(const Item& item) {
    Picture picture{.category = Picture::Category::Number};
    int bytes = item.usage->bytes;
    picture.isSigned = bytes > 0 ? !item.usage->isUnsigned : item.meaning->isSigned;
    if (bytes == 0 && item.meaning->category == Picture::Category::Text) {
        if (item.meaning->length >= std::int64_t{digitsOfBytes.size()}) return {};
        bytes = static_cast<int>(item.meaning->length);
    } else if (bytes == 0) {
        if (!item.meaning->IsNumeric() || item.meaning->Digits() > largestSigned - 1) return {};
        bytes = BytesOfDigits(item.meaning->Digits());
        picture.decimalDigits = item.meaning->decimalDigits;
    }
    const int digits =
        bytes == 8 && picture.isSigned ? largestSigned : digitsOfBytes[static_cast<std::size_t>(bytes)];
    picture.integerDigits = std::max<std::int64_t>(digits - picture.decimalDigits, 0);
    return picture;
}

std::string Number(std::int64_t number) { return std::to_string(number); }

class TypeChooser {
  public:
    TypeChooser(VNTWS& workspace, const SqlTypeList& types, const Item& item, Language language)
        : workspace_(workspace), types_(types), item_(item), language_(language) {}

    ColumnType Choose() {
        const Usage usage = item_.usage ? item_.usage->usage : Usage::Display;
        const bool isFloatPicture = item_.meaning && item_.meaning->category == Picture::Category::Float;
        if (usage == Usage::Float) return OfName({"REAL", "FLOAT", "DOUBLE"}, Text::ReasonFloat);
        if (usage == Usage::Double || isFloatPicture) return OfName({"DOUBLE", "FLOAT"}, Text::ReasonDouble);
        if (usage == Usage::Index)
            return OfPicture({.category = Picture::Category::Number, .integerDigits = indexDigits},
                             Text::ReasonIndex);
        if (const auto native = IsNative(item_) ? NativePicture(item_) : std::nullopt)
            return OfPicture(*native, Text::ReasonNative);
        return OfPicture(*item_.meaning, ReasonOf(*item_.meaning));
    }

  private:
    std::string Say(Text text, const std::vector<std::string>& details = {}) const {
        return Phrase(language_, text, details);
    }

    ColumnType OfName(std::initializer_list<const char*> names, Text reason) {
        constexpr std::int32_t doublePrecision = 53;
        ColumnType type{.typeID = types_.FirstOf(names), .reason = Say(reason)};
        if (type.typeID == 0) throw Complaint(Text::NoSqlType, {item_.ShownName()});
        workspace_.GetCompatibleType(doublePrecision, 0, item_.picture, UsageWord(), type.typeID,
                                     type.precision, type.scale);
        return type;
    }

    static Text ReasonOf(const Picture& picture) {
        using enum Picture::Category;
        const bool isDecimal = picture.decimalDigits > 0;
        switch (picture.category) {
            case National:
                return Text::ReasonNational;
            case EditedText:
                return Text::ReasonEditedText;
            case Number:
                return isDecimal ? Text::ReasonDecimal : Text::ReasonNumber;
            case EditedNumber:
                return isDecimal ? Text::ReasonEditedDecimal : Text::ReasonEditedNumber;
            default:
                return Text::ReasonText;
        }
    }

    ColumnType OfPicture(const Picture& picture, Text reason) {
        ColumnType type = Compatible(picture);
        const bool isText = !picture.IsNumeric();
        type.reason =
            Say(reason, {Number(isText ? picture.length : picture.Digits()), Number(picture.decimalDigits)});
        if (!isText && (type.typeID == characterType || types_.IsTooLarge(type.typeID, type.precision))) {
            const std::string refused = types_.NameOf(types_.FirstOf({"DECIMAL"}));
            type = Keep(type, Compatible({.length = picture.Digits() + signAndPoint}),
                        Say(Text::ReasonTooManyDigits, {refused}));
        }
        if (types_.IsTooLarge(type.typeID, type.precision)) MakeLong(type);
        return type;
    }

    static ColumnType Keep(const ColumnType& before, ColumnType type, const std::string& why) {
        type.reason = before.reason + ", " + why;
        return type;
    }

    void MakeLong(ColumnType& type) {
        const std::int32_t longText = types_.FirstOf({"LONGVARCHAR"});
        if (longText == 0) return;
        type = Keep(type, {.typeID = longText}, Say(Text::ReasonTooLong, {types_.NameOf(type.typeID)}));
    }

    ColumnType Compatible(const Picture& picture) {
        ColumnType type;
        workspace_.GetCompatibleType(0, 0, PlainPicture(picture), UsageWord(), type.typeID, type.precision,
                                     type.scale);
        return type;
    }

    std::string UsageWord() const { return item_.usage ? item_.usage->word : "DISPLAY"; }

    VNTWS& workspace_;
    const SqlTypeList& types_;
    const Item& item_;
    Language language_;
};

}  // namespace

ColumnType ChooseType(VNTWS& workspace, const SqlTypeList& types, const Item& item, Language language) {
    return TypeChooser(workspace, types, item, language).Choose();
}

}  // namespace tessel::layout

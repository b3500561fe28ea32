#pragma once

#include <string>
#include <vector>

#include "shared/language.h"

namespace tessel::layout {

using tool::Language;

// Everything that a person reads.
enum class Text {
    // What was not used.
    NotUtf8,
    BadIndicator,
    ShortLine,
    DebuggingLine,
    Directive,
    OpenLiteral,
    OpenPseudoText,
    CopyUnclear,
    CopyNotFound,
    CopyCycle,
    CopyTooDeep,
    NoDescription,
    BadLevel,
    UnknownClause,
    BadOccurs,
    BadPicture,
    PictureOnGroup,
    NoPicture,
    Address,
    Renames,
    Redefinition,
    RedefinitionLines,
    ConditionAlone,
    OtherRecord,
    NameRefused,
    MoreRemarks,
    // Why a column has its type.
    ReasonText,
    ReasonNational,
    ReasonEditedText,
    ReasonNumber,
    ReasonDecimal,
    ReasonEditedNumber,
    ReasonEditedDecimal,
    ReasonNative,
    ReasonFloat,
    ReasonDouble,
    ReasonIndex,
    ReasonTooLong,
    ReasonTooManyDigits,
    // What else a comment says.
    SeparateSign,
    BlankWhenZero,
    Justified,
    Occurrence,
    Occurs,
    OccursDepending,
    Redefines,
    InitialValue,
    Values,
    // The forms.
    Title,
    FileField,
    FileFilter,
    TableField,
    NewTable,
    NameField,
    FormatField,
    FormatAuto,
    FormatFixed,
    FormatFree,
    OccursField,
    OccursExpand,
    OccursOnce,
    RedefinesField,
    RedefinesFirst,
    RedefinesAll,
    PrefixField,
    Preview,
    RecordText,
    RecordField,
    ColumnsField,
    HeadName,
    HeadType,
    HeadPicture,
    HeadLine,
    MoreColumns,
    RemarksField,
    Import,
    // What came of it.
    Result,
    ResultOne,
    Remarks,
    RemarksOne,
    NothingImported,
    Importing,
    // Why it cannot be done.
    FileUnreadable,
    FileNotWritten,
    NoTextFile,
    TooLarge,
    TooManyWords,
    NoRecord,
    UnknownRecord,
    NoColumns,
    TooManyColumns,
    UnknownParameter,
    BadParameter,
    TableRefused,
    ColumnRefused,
    NoSqlType,
    Count,  // how many there are
};

// The text in the language, %1, %2, ... filled in by the details in their order.
[[nodiscard]] std::string Phrase(Language language, Text text, const std::vector<std::string>& details = {});

}  // namespace tessel::layout

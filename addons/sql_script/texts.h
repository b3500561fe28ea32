#pragma once

#include <string>
#include <vector>

#include "shared/language.h"

namespace tessel::sql_script {

using tool::Language;

// Everything that the tool says to people.
enum class Text {
    Caption,
    Database,
    File,
    Drop,
    Comments,
    Write,
    Filter,
    Progress,
    Reading,
    Writing,
    Table,
    Tables,
    Key,
    Keys,
    Remark,
    Remarks,
    Summary,
    MoreRemarks,
    UnknownParameter,
    WrongValue,
    CannotRead,
    CannotWrite,
    NoFile,
    Replaces,
    NothingWritten,
    TypeLine,
    TypeHeading,
    TypeCells,
    TypeTwice,
    TypeTemplate,
    TypeLimit,
    TypeOther,
    NameChanged,
    NoType,
    WrongDefault,
    EmptyTable,
    TooManyColumns,
    RowTooLong,
    LongType,
    EmptyIndex,
    BrokenIndex,
    IndexTooLarge,
    PrimaryAscending,
    PrimaryNotNull,
    EmptyKey,
    BrokenKey,
    KeyNotUnique,
    KeyTypes,
    CommentCut,
    COUNT
};

// The text with `parameters` in place of %1, %2 and so on.
[[nodiscard]] std::string Say(Language language, Text text, const std::vector<std::string>& parameters = {});

// Such as "1 table" and "21 tables".
[[nodiscard]] std::string Counted(Language language, Text one, Text many, std::size_t count);

// Something that the script cannot keep as the schema has it. The first parameter names what it is about.
struct RemarkText {
    Text text;
    std::vector<std::string> parameters;
};

}  // namespace tessel::sql_script

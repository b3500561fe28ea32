#include "texts.h"

#include <array>

namespace tessel::layout {

namespace {

struct Row {
    Text text;
    std::array<const char*, 3> phrases;  // in the order of Language
};

constexpr std::array<Row, static_cast<std::size_t>(Text::Count)> rows{{
    {Text::NotUtf8,
     {"the file is not UTF-8; its other bytes are read as Latin-1",
      "ファイルが UTF-8 ではないため、残りのバイトを Latin-1 として読みました",
      "파일이 UTF-8이 아니므로 나머지 바이트를 Latin-1로 읽었습니다"}},
    {Text::BadIndicator,
     {"\"%1\" in column 7 is no indicator", "7 桁目の「%1」は標識ではありません",
      "7열의 \"%1\"은(는) 표시자가 아닙니다"}},
    {Text::ShortLine,
     {"nothing stands from column 8 on", "8 桁目以降に何もありません", "8열부터 아무것도 없습니다"}},
    {Text::DebuggingLine, {"debugging line", "デバッグ行です", "디버깅 줄입니다"}},
    {Text::Directive, {"compiler directive: %1", "翻訳指示です: %1", "컴파일러 지시문입니다: %1"}},
    {Text::OpenLiteral,
     {"the literal is not closed: %1", "定数が閉じていません: %1", "리터럴이 닫히지 않았습니다: %1"}},
    {Text::OpenPseudoText,
     {"the text after == is not closed", "== の後のテキストが閉じていません",
      "== 뒤의 텍스트가 닫히지 않았습니다"}},
    {Text::CopyUnclear,
     {"COPY is not understood: %1", "COPY を解釈できません: %1", "COPY를 해석할 수 없습니다: %1"}},
    {Text::CopyNotFound,
     {"COPY %1: there is no such file beside this one", "COPY %1: 同じフォルダーにファイルがありません",
      "COPY %1: 같은 폴더에 파일이 없습니다"}},
    {Text::CopyCycle,
     {"COPY %1: the file would copy itself", "COPY %1: ファイルが自分自身を複写します",
      "COPY %1: 파일이 자기 자신을 복사합니다"}},
    {Text::CopyTooDeep,
     {"COPY %1: files copy one another too deeply", "COPY %1: 複写の入れ子が深すぎます",
      "COPY %1: 복사가 너무 깊게 중첩되었습니다"}},
    {Text::NoDescription,
     {"not the description of an item: %1", "項目の記述ではありません: %1", "항목 기술이 아닙니다: %1"}},
    {Text::BadLevel,
     {"the level %1 is none of 01 to 49, 66, 77 and 88",
      "レベル番号 %1 は 01～49、66、77、88 のどれでもありません",
      "레벨 번호 %1은(는) 01~49, 66, 77, 88 중 하나가 아닙니다"}},
    {Text::UnknownClause, {"%1: not understood: %2", "%1: 解釈できません: %2", "%1: 해석할 수 없습니다: %2"}},
    {Text::BadOccurs,
     {"%1: OCCURS without a number from 1 up; taken once",
      "%1: OCCURS に 1 以上の数がないため 1 回としました",
      "%1: OCCURS에 1 이상의 수가 없어 한 번으로 처리했습니다"}},
    {Text::BadPicture,
     {"%1: %2 is no picture", "%1: %2 は PICTURE 文字列ではありません",
      "%1: %2은(는) PICTURE 문자열이 아닙니다"}},
    {Text::PictureOnGroup,
     {"%1: the picture of a group is not used", "%1: 集団項目の PICTURE は使いません",
      "%1: 그룹 항목의 PICTURE는 사용하지 않습니다"}},
    {Text::NoPicture,
     {"%1 has neither a picture nor items under it", "%1 には PICTURE も下位の項目もありません",
      "%1에는 PICTURE도 하위 항목도 없습니다"}},
    {Text::Address,
     {"%1: an address (%2) makes no column", "%1: アドレス (%2) は列になりません",
      "%1: 주소(%2)는 열이 되지 않습니다"}},
    {Text::Renames,
     {"RENAMES makes no column: %1", "RENAMES は列になりません: %1", "RENAMES는 열이 되지 않습니다: %1"}},
    {Text::Redefinition,
     {"%1 redefines %2 and is left out", "%1 は %2 の再定義なので除きました",
      "%1은(는) %2의 재정의이므로 제외했습니다"}},
    {Text::RedefinitionLines,
     {"%1 redefines %2 and is left out, lines %3 to %4", "%1 は %2 の再定義なので除きました (%3～%4 行)",
      "%1은(는) %2의 재정의이므로 제외했습니다(%3~%4줄)"}},
    {Text::ConditionAlone,
     {"the condition %1 belongs to %2, which makes no column", "条件名 %1 が属する %2 は列になりません",
      "조건 이름 %1이(가) 속한 %2은(는) 열이 되지 않습니다"}},
    {Text::OtherRecord, {"%1 is another record", "%1 は別のレコードです", "%1은(는) 다른 레코드입니다"}},
    {Text::NameRefused,
     {"%1 cannot be the name of a column", "%1 は列の名前にできません", "%1은(는) 열 이름이 될 수 없습니다"}},
    {Text::MoreRemarks, {"and %1 more", "ほか %1 件", "그 밖에 %1건"}},

    {Text::ReasonText, {"text of length %1", "長さ %1 のテキスト", "길이 %1의 텍스트"}},
    {Text::ReasonNational,
     {"national text of length %1", "長さ %1 の日本語テキスト", "길이 %1의 각국 문자 텍스트"}},
    {Text::ReasonEditedText,
     {"edited text of length %1", "編集された長さ %1 のテキスト", "편집된 길이 %1의 텍스트"}},
    {Text::ReasonNumber, {"%1-digit number", "%1 桁の数", "%1자리 수"}},
    {Text::ReasonDecimal, {"%1-digit number, scale %2", "%1 桁の数、小数部 %2 桁", "%1자리 수, 소수 %2자리"}},
    {Text::ReasonEditedNumber, {"edited %1-digit number", "編集された %1 桁の数", "편집된 %1자리 수"}},
    {Text::ReasonEditedDecimal,
     {"edited %1-digit number, scale %2", "編集された %1 桁の数、小数部 %2 桁",
      "편집된 %1자리 수, 소수 %2자리"}},
    {Text::ReasonNative, {"binary number, up to %1 digits", "%1 桁までの 2 進数", "최대 %1자리의 이진수"}},
    {Text::ReasonFloat, {"short floating-point number", "単精度浮動小数点数", "단정도 부동 소수점 수"}},
    {Text::ReasonDouble, {"long floating-point number", "倍精度浮動小数点数", "배정도 부동 소수점 수"}},
    {Text::ReasonIndex, {"place in a table", "表の中の位置", "표 안의 위치"}},
    {Text::ReasonTooLong, {"longer than %1 can be", "%1 の上限より長い", "%1의 한도보다 김"}},
    {Text::ReasonTooManyDigits,
     {"more digits than %1 takes", "%1 の上限より桁が多い", "%1의 한도보다 자릿수가 많음"}},

    {Text::SeparateSign, {"sign in a place of its own", "符号は独立した桁", "부호는 독립된 자리"}},
    {Text::BlankWhenZero, {"blank when zero", "ゼロのとき空白", "0이면 공백"}},
    {Text::Justified, {"justified right", "右寄せ", "오른쪽 맞춤"}},
    {Text::Occurrence, {"occurrence %1 of %2", "%2 回中 %1 番目", "%2회 중 %1번째"}},
    {Text::Occurs, {"occurs %1 times", "%1 回反復", "%1회 반복"}},
    {Text::OccursDepending,
     {"occurs %1 to %2 times, depending on %3", "%3 により %1～%2 回反復", "%3에 따라 %1~%2회 반복"}},
    {Text::Redefines, {"redefines %1", "%1 の再定義", "%1의 재정의"}},
    {Text::InitialValue, {"initial value %1", "初期値 %1", "초기값 %1"}},
    {Text::Values, {"values: %1", "値: %1", "값: %1"}},

    {Text::Title, {"Record Layout Import", "レコード レイアウトの取り込み", "레코드 레이아웃 가져오기"}},
    {Text::FileField, {"&File:", "ファイル(&F):", "파일(&F):"}},
    {Text::FileFilter,
     {"Copybooks (*.cpy *.CPY *.cbl *.CBL *.cob *.COB);;All files (*)",
      "COPY 句 (*.cpy *.CPY *.cbl *.CBL *.cob *.COB);;すべてのファイル (*)",
      "카피북 (*.cpy *.CPY *.cbl *.CBL *.cob *.COB);;모든 파일 (*)"}},
    {Text::TableField, {"&Table:", "テーブル(&T):", "테이블(&T):"}},
    {Text::NewTable, {"(new table)", "(新しいテーブル)", "(새 테이블)"}},
    {Text::NameField, {"&Name of the new table:", "新しいテーブルの名前(&N):", "새 테이블의 이름(&N):"}},
    {Text::FormatField, {"Fo&rmat:", "形式(&R):", "형식(&R):"}},
    {Text::FormatAuto, {"As the file looks", "ファイルから判断", "파일에서 판단"}},
    {Text::FormatFixed, {"Fixed (columns 8 to 72)", "固定形式 (8～72 桁)", "고정 형식(8~72열)"}},
    {Text::FormatFree, {"Free", "自由形式", "자유 형식"}},
    {Text::OccursField, {"&OCCURS:", "OCCURS(&O):", "OCCURS(&O):"}},
    {Text::OccursExpand, {"A column for each occurrence", "反復ごとに 1 列", "반복마다 한 열"}},
    {Text::OccursOnce, {"One column", "全体で 1 列", "전체를 한 열로"}},
    {Text::RedefinesField, {"R&EDEFINES:", "REDEFINES(&E):", "REDEFINES(&E):"}},
    {Text::RedefinesFirst, {"First description only", "最初の記述のみ", "첫 번째 기술만"}},
    {Text::RedefinesAll, {"All descriptions", "すべての記述", "모든 기술"}},
    {Text::PrefixField,
     {"Put the names of &groups in front", "集団項目の名前を前に付ける(&G)",
      "그룹 항목의 이름을 앞에 붙이기(&G)"}},
    {Text::Preview, {"Preview", "プレビュー", "미리 보기"}},
    {Text::RecordText,
     {"The file describes several records.", "ファイルに複数のレコードがあります。",
      "파일에 레코드가 여러 개 있습니다."}},
    {Text::RecordField, {"&Record:", "レコード(&R):", "레코드(&R):"}},
    {Text::ColumnsField, {"Co&lumns:", "列(&L):", "열(&L):"}},
    {Text::HeadName, {"Name", "名前", "이름"}},
    {Text::HeadType, {"Type", "型", "형식"}},
    {Text::HeadPicture, {"Picture", "PICTURE", "PICTURE"}},
    {Text::HeadLine, {"Line", "行", "줄"}},
    {Text::MoreColumns, {"and %1 more", "ほか %1 列", "그 밖에 %1열"}},
    {Text::NotUsedField, {"Not &used:", "使わない行(&U):", "사용하지 않는 줄(&U):"}},
    {Text::Import, {"Import", "取り込み", "가져오기"}},

    {Text::Result, {"%1 columns into %2", "%1 列を %2 へ", "%1개의 열을 %2(으)로"}},
    {Text::ResultOne, {"%1 column into %2", "%1 列を %2 へ", "%1개의 열을 %2(으)로"}},
    {Text::Unused, {"%1 lines not used", "使わない行 %1", "사용하지 않은 줄 %1"}},
    {Text::UnusedOne, {"%1 line not used", "使わない行 %1", "사용하지 않은 줄 %1"}},
    {Text::NothingImported,
     {"Nothing was imported.", "何も取り込みませんでした。", "아무것도 가져오지 않았습니다."}},
    {Text::Importing, {"Importing columns", "列を取り込み中", "열을 가져오는 중"}},

    {Text::FileUnreadable,
     {"The file %1 cannot be read.", "ファイル %1 を読めません。", "파일 %1을(를) 읽을 수 없습니다."}},
    {Text::FileNotWritten,
     {"%1 cannot be written: %2.", "%1 に書き込めません: %2。", "%1에 쓸 수 없습니다: %2."}},
    {Text::NoTextFile,
     {"The file %1 is not a text.", "ファイル %1 はテキストではありません。",
      "파일 %1은(는) 텍스트가 아닙니다."}},
    {Text::TooLarge,
     {"The file %1 and what it copies are larger than %2 MB.",
      "ファイル %1 とその複写先が %2 MB を超えています。", "파일 %1과(와) 복사되는 내용이 %2MB를 넘습니다."}},
    {Text::TooManyWords,
     {"The file %1 and what it copies have more than %2 words.",
      "ファイル %1 とその複写先が %2 語を超えています。",
      "파일 %1과(와) 복사되는 내용이 %2단어를 넘습니다."}},
    {Text::NoRecord,
     {"The file %1 describes no record.", "ファイル %1 にレコードの記述がありません。",
      "파일 %1에 레코드 기술이 없습니다."}},
    {Text::UnknownRecord,
     {"The file %1 describes no record %2.", "ファイル %1 にレコード %2 がありません。",
      "파일 %1에 레코드 %2이(가) 없습니다."}},
    {Text::NoColumns,
     {"The record %1 makes no columns.", "レコード %1 から列は作られません。",
      "레코드 %1에서 만들 열이 없습니다."}},
    {Text::TooManyColumns,
     {"The record %1 makes more than %2 columns. Take OCCURS as one column.",
      "レコード %1 の列が %2 を超えます。OCCURS を 1 列にしてください。",
      "레코드 %1의 열이 %2개를 넘습니다. OCCURS를 한 열로 하십시오."}},
    {Text::UnknownParameter,
     {"There is no parameter \"%1\".", "パラメーター「%1」はありません。",
      "매개 변수 \"%1\"은(는) 없습니다."}},
    {Text::BadParameter,
     {"The parameter \"%1\" cannot be \"%2\".", "パラメーター「%1」に「%2」は指定できません。",
      "매개 변수 \"%1\"에 \"%2\"을(를) 지정할 수 없습니다."}},
    {Text::TableRefused,
     {"The table %1 cannot be made.", "テーブル %1 を作れません。", "테이블 %1을(를) 만들 수 없습니다."}},
    {Text::ColumnRefused,
     {"The column %1 cannot be made.", "列 %1 を作れません。", "열 %1을(를) 만들 수 없습니다."}},
    {Text::NoSqlType,
     {"The schema has no SQL type for %1.", "スキーマに %1 のための SQL 型がありません。",
      "스키마에 %1을(를) 위한 SQL 형식이 없습니다."}},
}};

constexpr bool StandInOrder() {
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (rows[i].text != static_cast<Text>(i)) return false;
    return true;
}
static_assert(StandInOrder());

}  // namespace

Language LanguageOf(std::string_view code) {
    if (code == "ja") return Language::Japanese;
    return code == "ko" ? Language::Korean : Language::English;
}

std::string Phrase(Language language, Text text, const std::vector<std::string>& details) {
    const std::string_view phrase =
        rows[static_cast<std::size_t>(text)].phrases[static_cast<std::size_t>(language)];
    std::string filled;
    for (std::size_t i = 0; i < phrase.size(); ++i) {
        const std::size_t detail = phrase[i] == '%' && i + 1 < phrase.size()
                                       ? static_cast<std::size_t>(phrase[i + 1] - '1')
                                       : details.size();
        if (detail >= details.size()) {
            filled += phrase[i];
            continue;
        }
        filled += details[detail];
        ++i;
    }
    return filled;
}

}  // namespace tessel::layout

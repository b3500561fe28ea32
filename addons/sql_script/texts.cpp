#include "sql_script/texts.h"

#include <array>

#include "sql_script/text_tools.h"

namespace tessel::sql_script {

namespace {

// In English, Japanese and Korean, in the order of Text.
constexpr std::array<std::array<const char*, 3>, static_cast<std::size_t>(Text::COUNT)> texts{{
    {"SQL Script", "SQL スクリプト", "SQL 스크립트"},
    {"&Database:", "データベース(&D):", "데이터베이스(&D):"},
    {"&File:", "ファイル(&F):", "파일(&F):"},
    {"Drop &tables of the same names first", "先に同じ名前のテーブルを削除(&T)",
     "같은 이름의 테이블을 먼저 삭제(&T)"},
    {"With &comments", "コメントを含める(&C)", "주석 포함(&C)"},
    {"&Write", "書き出し(&W)", "쓰기(&W)"},
    {"SQL scripts (*.sql)", "SQL スクリプト (*.sql)", "SQL 스크립트 (*.sql)"},
    {"Writing the SQL script", "SQL スクリプトの書き出し", "SQL 스크립트 쓰기"},
    {"Reading the schema", "スキーマの読み取り", "스키마 읽기"},
    {"Writing %1", "%1 の書き出し", "%1 쓰기"},
    {"%1 table", "テーブル %1 個", "테이블 %1개"},
    {"%1 tables", "テーブル %1 個", "테이블 %1개"},
    {"%1 key", "キー %1 個", "키 %1개"},
    {"%1 keys", "キー %1 個", "키 %1개"},
    {"%1 remark", "注意 %1 件", "참고 사항 %1건"},
    {"%1 remarks", "注意 %1 件", "참고 사항 %1건"},
    {"%1: %2", "%1: %2", "%1: %2"},
    {"... and %1 more in the script.", "… ほか %1 件はスクリプトにあります。",
     "… 그 밖의 %1건은 스크립트에 있습니다."},
    {"The parameter \"%1\" is not known here; there are dialect, file, drop and comments.",
     "パラメーター「%1」は使えません。使えるのは dialect、file、drop、comments です。",
     "매개 변수 \"%1\"은(는) 사용할 수 없습니다. dialect, file, drop, comments만 사용할 수 있습니다."},
    {"\"%2\" is no value of the parameter \"%1\"; it takes %3.",
     "パラメーター「%1」に「%2」は指定できません。指定できるのは %3 です。",
     "매개 변수 \"%1\"에 \"%2\"을(를) 지정할 수 없습니다. 지정할 수 있는 값: %3."},
    {"%1 cannot be read: %2.", "%1 を読み取れません: %2", "%1을(를) 읽을 수 없습니다: %2"},
    {"%1 cannot be written: %2.", "%1 に書き込めません: %2", "%1에 쓸 수 없습니다: %2"},
    {"Enter the name of the file.", "ファイル名を入力してください。", "파일 이름을 입력하십시오."},
    {"%1 is there already. It will be replaced.", "%1 はすでにあります。置き換えます。",
     "%1이(가) 이미 있습니다. 바꿉니다."},
    {"Nothing was written.", "何も書き出しませんでした。", "아무것도 쓰지 않았습니다."},
    {"%1, line %2: %3", "%1、%2 行目: %3", "%1, %2번째 줄: %3"},
    {"The first line must be a heading of \"type\" and the dialects, which lacks \"%1\".",
     "先頭行は「type」と各データベースの見出しでなければなりません。「%1」がありません。",
     "첫 줄은 \"type\"과 각 데이터베이스의 머리글이어야 합니다. \"%1\"이(가) 없습니다."},
    {"The line has %1 cell(s), the heading %2.", "セルが %1 個ありますが、見出しは %2 個です。",
     "셀이 %1개인데 머리글은 %2개입니다."},
    {"The type %1 has a line already.", "型 %1 の行はすでにあります。", "형식 %1의 줄이 이미 있습니다."},
    {"\"%1\" is no type; between braces there may only be {p} and {s}, in parentheses.",
     "「%1」は型ではありません。波かっこに書けるのは、丸かっこの中の {p} と {s} だけです。",
     "\"%1\"은(는) 형식이 아닙니다. 중괄호에는 소괄호 안의 {p}와 {s}만 쓸 수 있습니다."},
    {"\"%1\" is no limit such as 255 or 65,30.", "「%1」は 255 や 65,30 のような上限ではありません。",
     "\"%1\"은(는) 255나 65,30 같은 한도가 아닙니다."},
    {"There is no line \"*\" for every other type.", "その他すべての型を表す行「*」がありません。",
     "그 밖의 모든 형식을 나타내는 줄 \"*\"이 없습니다."},
    {"%1: %2 does not take the name, which becomes %3.", "%1: %2 では使えない名前のため、%3 に変わります。",
     "%1: %2에서 쓸 수 없는 이름이므로 %3(으)로 바뀝니다."},
    {"%1: there is no counterpart of the type %2; %3 stands in its place.",
     "%1: 型 %2 に対応する型がないため、%3 で代用します。",
     "%1: 형식 %2에 해당하는 형식이 없어 %3(으)로 대신합니다."},
    {"%1: the default value \"%2\" is left out, for it is no value of %3.",
     "%1: 既定値「%2」は %3 の値ではないため省きます。",
     "%1: 기본값 \"%2\"은(는) %3의 값이 아니므로 제외합니다."},
    {"%1: the table is left out, for it has no columns.", "%1: 列がないため、テーブルを省きます。",
     "%1: 열이 없으므로 테이블을 제외합니다."},
    {"%1: the table is left out, for %2 takes %3 columns at most.",
     "%1: %2 の列は %3 個までのため、テーブルを省きます。",
     "%1: %2의 열은 %3개까지이므로 테이블을 제외합니다."},
    {"%1: %2 may refuse the table, for its rows can take more than %3 bytes.",
     "%1: 行が %3 バイトを超えうるため、%2 がテーブルを受け付けないことがあります。",
     "%1: 행이 %3바이트를 넘을 수 있어 %2이(가) 테이블을 거부할 수 있습니다."},
    {"%1: the type %2 makes the rows too long for %3 and becomes %4.",
     "%1: 型 %2 では行が %3 に長すぎるため、%4 に変わります。",
     "%1: 형식 %2(으)로는 행이 %3에 너무 길어 %4(으)로 바뀝니다."},
    {"%1: the index is left out, for it has no columns.", "%1: 列がないため、インデックスを省きます。",
     "%1: 열이 없으므로 인덱스를 제외합니다."},
    {"%1: the index is left out, for its columns are not in order: one is not there, or stands twice.",
     "%1: 存在しない列、または重複した列があるため、インデックスを省きます。",
     "%1: 없는 열이나 중복된 열이 있으므로 인덱스를 제외합니다."},
    {"%1: the index is left out, for %2 cannot take these columns into an index.",
     "%1: %2 はこれらの列をインデックスにできないため、インデックスを省きます。",
     "%1: %2은(는) 이 열들을 인덱스로 만들 수 없으므로 인덱스를 제외합니다."},
    {"%1: %2 keeps the primary key in ascending order.", "%1: %2 は主キーを昇順で保持します。",
     "%1: %2은(는) 기본 키를 오름차순으로 유지합니다."},
    {"%1: the column takes no Null, for it is in the primary key.",
     "%1: 主キーの列のため、Null を許可しません。", "%1: 기본 키의 열이므로 Null을 허용하지 않습니다."},
    {"%1: the key is left out, for it joins no columns.", "%1: 列の組がないため、キーを省きます。",
     "%1: 연결하는 열이 없으므로 키를 제외합니다."},
    {"%1: the key is left out, for what it joins is not there or stands twice.",
     "%1: 参照先または列が存在しないか重複しているため、キーを省きます。",
     "%1: 참조 대상이나 열이 없거나 중복되므로 키를 제외합니다."},
    {"%1: the key is left out, for no unique index of %2 has exactly the columns that it refers to.",
     "%1: 参照する列だけからなる一意インデックスが %2 にないため、キーを省きます。",
     "%1: 참조하는 열로만 이루어진 고유 인덱스가 %2에 없으므로 키를 제외합니다."},
    {"%1: the key is left out, for %2 joins no columns of the types %3 and %4.",
     "%1: %2 は型 %3 と %4 の列を結べないため、キーを省きます。",
     "%1: %2은(는) 형식 %3과(와) %4의 열을 연결할 수 없으므로 키를 제외합니다."},
    {"%1: the comment is cut, for %2 takes %3 characters.",
     "%1: %2 のコメントは %3 文字までのため、切り詰めます。", "%1: %2의 주석은 %3자까지이므로 잘라 냅니다."},
}};

}  // namespace

Language LanguageOf(std::string_view code) {
    if (code == "ja") return Language::Japanese;
    return code == "ko" ? Language::Korean : Language::English;
}

std::string Say(Language language, Text text, const std::vector<std::string>& parameters) {
    const std::string_view form = texts[static_cast<std::size_t>(text)][static_cast<std::size_t>(language)];
    std::string said;
    for (std::size_t i = 0; i < form.size(); ++i) {
        const auto digit = form[i] == '%' && i + 1 < form.size() ? static_cast<std::size_t>(form[i + 1] - '1')
                                                                 : parameters.size();
        if (digit < parameters.size()) {
            said += parameters[digit];
            ++i;
        } else {
            said += form[i];
        }
    }
    return said;
}

std::string Counted(Language language, Text one, Text many, std::size_t count) {
    return Say(language, count == 1 ? one : many, {std::to_string(count)});
}

}  // namespace tessel::sql_script

#include "ui/rules/origin_content.h"

#include "support/schema_test.h"
#include "ui/rules/origin_text.h"

namespace tessel::test {

class OriginContentTest : public SchemaTest {
  protected:
    // What is shown, in one line: title, attributes, text, line and notice.
    std::string Shown(const std::string& reference) {
        const OriginContent content = ReadOrigin(state, reference);
        std::string shown = content.title + '|';
        for (const auto& [name, value] : content.attributes) shown += name + '=' + value + ';';
        return shown + '|' + content.text + '|' + std::to_string(content.line) + '|' + content.notice;
    }
};

TEST_F(OriginContentTest, ShowsTheFileThatTheReferenceNames) {
    state.codePage = std::make_shared<text::CodePage>(932);
    std::filesystem::create_directories(folder / "src/deep");
    std::filesystem::create_symlink("/etc/passwd", folder / "src/link");
    Write(folder / "src/deep/loan.txt", "one\r\ntwo");
    Write(folder / "sjis.txt", "\x93\xFA\xB1!\xFF");
    Write(folder / "a:b", "colon");
    Write(folder / "bom.txt", "\xEF\xBB\xBF顧客");
    const struct {
        std::string reference;
        std::string shown;
    } cases[] = {
        {"", "(none)|||0|"},
        {"text:", "(none)|||0|No source text is known."},
        {"text:src\\deep/loan.txt", "loan.txt||one\r\ntwo|0|"},
        {"text:src/deep/loan.txt:2", "loan.txt||one\r\ntwo|2|"},
        {"text:a:b", "a:b||colon|0|"},
        {"text:sjis.txt", "sjis.txt||日ｱ!\xEF\xBF\xBD|0|"},
        {"text:bom.txt:1234567890",
         "bom.txt:1234567890|||0|There is no file bom.txt:1234567890 in the "
         "workspace folder."},
        {"text:bom.txt:7", "bom.txt||顧客|7|"},
        {"text:src", "src|||0|There is no file src in the workspace folder."},
        {"text:../x.txt", "x.txt|||0|../x.txt lies outside the workspace folder and is not shown."},
        {"text:src\\..\\..\\x", "x|||0|src\\..\\..\\x lies outside the workspace folder and is not shown."},
        {"text:/etc/passwd", "passwd|||0|/etc/passwd lies outside the workspace folder and is not shown."},
        {"text:src/link", "link|||0|src/link lies outside the workspace folder and is not shown."},
        {"line 3", "line 3|||0|The origin reference line 3 is of an unknown kind."},
    };
    for (const auto& [reference, shown] : cases) EXPECT_EQ(Shown(reference), shown) << reference;
}

TEST_F(OriginContentTest, ShowsTheObjectAndItsSource) {
    const auto loan = frontend->repository->Add("TABLE", "LOAN");
    const std::string reference = "obj:" + loan->Identifier();
    EXPECT_EQ(Shown(reference), "o2|Label=o2;Type=TABLE;Name=LOAN;||0|No source text is known.");
    loan->attributes["Label"] = "Loans";
    loan->attributes["Lumivex"] = "loan.cpy";
    Write(folder / "loan.cpy", "");
    frontend->sourceText = "01 LOAN.";
    state.originSource = {};
    EXPECT_EQ(Shown(reference + ":1"),
              "Loans|Label=Loans;Type=TABLE;Label=Loans;Lumivex=loan.cpy;"
              "Name=LOAN;|01 LOAN.|1|");
    EXPECT_EQ(Shown("obj:o99"), "o99|||0|The repository holds no object o99.");
    state.frontend = nullptr;
    EXPECT_EQ(Shown("obj:o2"), "o2|||0|The repository holds no object o2.");
}

TEST(OriginTextTest, CutsWhatIsTooLongBetweenCharactersAndSaysSo) {
    const text::CodePage codePage(1252);
    const std::string euro = "\xE2\x82\xAC";
    std::string longLine;
    while (longLine.size() <= longestOriginLine) longLine += euro;
    const OriginText line = ReadableText("a\r\n\r\n" + longLine + "\nb", codePage);
    EXPECT_TRUE(line.isCut);
    EXPECT_EQ(line.text, "a\r\n\r\n" + longLine.substr(0, longestOriginLine / 3 * 3) + "…\nb");

    std::string longText;
    while (longText.size() <= longestOriginText) longText += "Gebühr\n";
    const OriginText text = ReadableText(longText, codePage);
    EXPECT_TRUE(text.isCut);
    EXPECT_EQ(text.text, longText.substr(0, longestOriginText / 8 * 8));
    EXPECT_FALSE(ReadableText(text.text, codePage).isCut);
    EXPECT_EQ(ReadableText("Geb\xFChr", codePage).text, "Gebühr");
}

}  // namespace tessel::test

#include "layout_test.h"
#include "platform/component/class_registry.h"
#include "tessel/error.h"

namespace tessel::test {

namespace {

constexpr const char* twoRecords =
    "       01 FIRST-ONE.\n           05 A PIC X.\n"
    "       01 OTHER.\n           05 B-NO PIC 9(3).\n           05 FILLER PIC X.\n           05 C PIC Q.\n";

TEST_F(LayoutTest, AsksForWhatItIsNotToldAndShowsWhatItWillDo) {
    Write(folder / "two.cpy", twoRecords);
    const std::int32_t table = AddTable("STOCK");
    AddColumn(table, "B_NO");
    questions->Answers({Filled({{"file", folder / "nowhere.cpy"}}),
                        Filled({{"file", folder / "two.cpy"}, {"table", "t" + std::to_string(table)}}),
                        Filled({{"record", "1"}}), host::Answer::Cancel, host::Answer::OK,
                        Filled({{"record", "1"}}), host::Answer::OK});
    EXPECT_EQ(Run("occurs=once"), "1 column into STOCK; 2 remarks");
    EXPECT_EQ(Ws().SelectedTabID(), table);
    EXPECT_EQ(ColumnsOf(table).back(), "B_NO1|SMALLINT|1|PIC 9(3): 3-digit number|text:two.cpy:4");

    const host::Form& preview = questions->lastForm;
    EXPECT_EQ(preview.text, "1 column into STOCK");
    EXPECT_EQ(preview.fields.at(0).rows,
              (std::vector<std::vector<std::string>>{{"B_NO1", "SMALLINT", "PIC 9(3)", "4"}}));
    EXPECT_EQ(ToText(preview.fields.at(1).value),
              "two.cpy:1: FIRST-ONE is another record\ntwo.cpy:6: C: Q is no picture");
    const auto asked = questions->TakeAsked();
    ASSERT_EQ(asked.size(), 8U);
    EXPECT_EQ(asked[1].text,
              "The file " + folder / "nowhere.cpy" + " cannot be read: No such file or directory.");
}

TEST_F(LayoutTest, LeavesTheSchemaAloneUntilItIsConfirmed) {
    Write(folder / "two.cpy", twoRecords);
    questions->Answers({host::Answer::Cancel});
    EXPECT_EQ(Run(""), "Nothing was imported.");
    host->language = "ja";
    questions->Answers({host::Answer::Cancel});
    EXPECT_EQ(Run("record=other;file=" + folder / "two.cpy"), "何も取り込みませんでした。");
    EXPECT_EQ(Rows("select * from Tables"), std::vector<std::string>{});
    EXPECT_FALSE(files::FileExists(folder / "schema.errors"));
    EXPECT_EQ(Run("preview=no;record=other;file=" + folder / "two.cpy"),
              "1 列を OTHER へ; 注意 2 件\n"
              "two.cpy:1: FIRST-ONE は別のレコードです\ntwo.cpy:6: C: Q は PICTURE 文字列ではありません");
    EXPECT_TRUE(files::FileExists(folder / "schema.errors"));
}

TEST_F(LayoutTest, ANewTableOfATakenNameStaysNewWhenTheFormComesBack) {
    Write(folder / "two.cpy", twoRecords);
    const std::int32_t table = AddTable("BOOK");
    questions->Answers({Filled({{"file", folder / "none.cpy"}, {"name", "BOOK"}}),
                        Filled({{"file", folder / "two.cpy"}}), host::Answer::OK});
    EXPECT_EQ(Run("record=other"), "1 column into BOOK1; 2 remarks");
    EXPECT_EQ(ColumnsOf(table), std::vector<std::string>{});
}

TEST_F(LayoutTest, ImportsAlsoWhereTheListOfRemarksCannotBeWritten) {
    Write(folder / "two.cpy", twoRecords);
    std::filesystem::create_directory(folder / "schema.errors");
    Run("preview=no;record=other;file=" + folder / "two.cpy");
    EXPECT_EQ(questions->TakeAsked().at(0).text,
              folder / "schema.errors" + " cannot be written: Is a directory.");
    EXPECT_EQ(Rows("select TableName from Tables"), std::vector<std::string>{"OTHER"});
}

TEST_F(LayoutTest, RefusesParametersThatItDoesNotKnow) {
    Write(folder / "two.cpy", twoRecords);
    const std::string file = "preview=no;file=" + folder / "two.cpy;";
    for (const auto& [parameter, message] : std::vector<std::pair<std::string, std::string>>{
             {"speed=high", "There is no parameter \"speed\"."},
             {"format=loose", "The parameter \"format\" cannot be \"loose\"."},
             {"occurs", "The parameter \"occurs\" cannot be \"\"."},
             {"record=none", "The file " + folder / "two.cpy" + " describes no record none."},
             {"table=9", "The table 9 cannot be made."}})
        try {
            Run(file + parameter);
            ADD_FAILURE() << parameter;
        } catch (const Error& error) {
            EXPECT_EQ(error.what(), message);
        }
}

TEST_F(LayoutTest, NamesTwoByteColumnsWhereTheCodePageHasThem) {
    state.codePage = std::make_shared<text::CodePage>(932);
    const std::string source =
        "       01 顧客.\n           05 住所 OCCURS 2.\n             07 電話 PIC X(9) OCCURS 2.\n";
    EXPECT_EQ(RunOn(source, ";prefix=yes"), "4 columns into 顧客");
    EXPECT_EQ(Rows("select ColumnName from Columns where ColumnID = 3"),
              std::vector<std::string>{"住所＿電話＿２＿１"});
}

TEST(RecordLayoutLibrary, OffersTheTool) {
    ClassRegistry registry;
    registry.LoadComponent(TESSEL_RECORD_LAYOUT);
    EXPECT_NE(registry.Create("Tessel.RecordLayout"), nullptr);
}

}  // namespace

}  // namespace tessel::test

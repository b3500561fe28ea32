#include "layout_test.h"
#include "record_layout/layout.h"
#include "tessel/error.h"

namespace tessel::test {

namespace {

std::string Times(std::size_t count, const std::string& text) {
    std::string all;
    for (std::size_t i = 0; i < count; ++i) all += text;
    return all;
}

const std::string record = "       01 R.\n";
const std::string oneColumn = record + "           05 A PIC X.\n";

// What a layout of one column and something bad gives: columns, or the message of the failure.
TEST_F(LayoutTest, TakesNothingAndNeverTooLong) {
    Write(folder / "SELF.cpy", "           COPY LAYOUT.\n           COPY SELF.\n");
    Write(folder / "DOUBLE.cpy", "           COPY DOUBLE1.\n           COPY DOUBLE1.\n");
    for (int i = 1; i <= 30; ++i) {
        const std::string next = "           COPY DOUBLE" + std::to_string(i + 1) + ".\n";
        Write(folder / "DOUBLE" + std::to_string(i) + ".cpy", next + next + "           05 B PIC X.\n");
    }
    const std::string huge(16'000'001, ' ');
    const std::string nest = "           05 A OCCURS 99999.\n           06 B OCCURS 99999.\n";
    const std::vector<std::pair<std::string, std::string>> layouts{
        {"", "describes no record."},
        {"just a letter\nto a friend\n", "describes no record."},
        {std::string("\x7F"
                     "ELF\0\1\2",
                     7),
         "is not a text."},
        {Times(100, "\x01\x02rubbish"), "is not a text."},
        {huge, "are larger than 16 MB."},
        {record + Times(200'001, "a "), "have more than 200000 words."},
        {record + nest + "           07 C PIC X.\n", "more than 10000 columns. Take OCCURS as one column."},
        {record + nest + "           07 FILLER PIC X.\n", "The record R makes no columns."},
        {oneColumn + nest + "           07 FILLER PIC X.\n", "1 column into R"},
        {record + Times(10'001, "           05 A PIC X.\n"), "more than 10000 columns."},
        {record + "           05 A OCCURS 999999999999999 PIC X.\n", "R1; 1 remark\nlayout.cpy:2: A: OCCURS"},
        {oneColumn + "           COPY SELF.\n",
         "COPY LAYOUT: the file would copy itself\nSELF.cpy:2: COPY SELF: the"},
        {oneColumn + "           COPY DOUBLE.\n", "have more than 200000 words."},
        {oneColumn + "           COPY ../passwd.\n", "COPY ../passwd: there is no such file"},
        {">>SOURCE FREE\n" + oneColumn + "COPY '" + std::string(300, 'A') + "'.\n",
         ": there is no such file"},
        {oneColumn + "           COPY A REPLACING ==A== BY", "COPY is not understood: COPY A REPLACING"},
        {oneColumn + "           05 B PIC X VALUE 'open", "the literal is not closed: 'open"},
        {oneColumn + "           COPY A REPLACING ==open", "the text after == is not closed"},
        {oneColumn + "           " + std::string(50'000, 'a'), "1 column into R"},
        {oneColumn + "           05 B PIC X VALUE \xFF\xFE.\n", "2 columns into R"},
        {oneColumn + Times(2'000, "           05 B PIC Q.\n"), "and 1000 more"},
    };
    for (const auto& [source, expected] : layouts) {
        std::string result;
        try {
            result = RunOn(source);
        } catch (const Error& error) {
            result = error.what();
        }
        EXPECT_NE(result.find(expected), std::string::npos) << source.substr(0, 200) << "\n"
                                                            << result.substr(0, 500);
    }
}

TEST(CopyReader, ReadsNoFileThatItRefusesToCopyAndPassesOverNoneThatItCannotRead) {
    int reads = 0;
    auto cause = std::errc::is_a_directory;
    const auto read = [&](const std::string& path, std::string& content) {
        if (path != "/A.cpy") return std::make_error_code(cause);
        ++reads;
        content = "01 R.\n05 B PIC X.\nCOPY A.\nCOPY A.\n";
        return std::error_code();
    };
    EXPECT_EQ(layout::ReadLayout("/A.cpy", layout::Format::Free, read).remarks.Count(), 2U);
    EXPECT_EQ(reads, 1);
    cause = std::errc::permission_denied;
    EXPECT_THROW((void)layout::ReadLayout("/A.cpy", layout::Format::Free, read), layout::Complaint);
}

// Words that each replacement makes longer, and more of them.
TEST_F(LayoutTest, ReplacesInBounds) {
    Write(folder / "TEXT.cpy", Times(2'000, "           05 :T: PIC X.\n"));
    const std::string longer = " ==:T:== BY ==:T:" + std::string(100, 'x') + ":T:==";
    const std::string many = " ==PIC== BY ==" + Times(500, "PIC X. 05 B ") + "==";
    for (const auto& [replacing, message] : std::vector<std::pair<std::string, std::string>>{
             {Times(20, longer), "The record"},
             {many, "have more than 200000 words."},
             {Times(9'000, " ==A== BY ==B=="), "have more than 200000 words."}})
        try {
            const std::string result =
                RunOn(">>SOURCE FREE\n01 R.\n05 A PIC X.\nCOPY TEXT REPLACING" + replacing + ".\n");
            EXPECT_NE(result.find("2001 columns into R"), std::string::npos) << result.substr(0, 500);
        } catch (const Error& error) {
            EXPECT_NE(std::string(error.what()).find(message), std::string::npos) << error.what();
        }
}

}  // namespace

}  // namespace tessel::test

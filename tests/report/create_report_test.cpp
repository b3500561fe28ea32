#include "report/create_report.h"

#include "report/fake_generator.h"
#include "report/page_file.h"
#include "support/schema_cases.h"

namespace tessel::test {

namespace {

namespace fs = std::filesystem;
using Strings = std::vector<std::string>;

const fs::path cases = TESSEL_TEST_DATA "/cases";

class Report : public SchemaCase, public testing::WithParamInterface<std::string> {
  protected:
    Report() {
        fs::create_directory(folder / "out");
        state.restrictText = "Restrict";
        state.cascadeText = "Cascade";
    }
    void Create() {
        CreateReport({.state = state,
                      .host = *frontend,
                      .schemaName = "Demo",
                      .generator = generator,
                      .options = page,
                      .progress = generator});
    }
    bool Has(const std::string& file) const { return fs::exists(folder / ("out/DBSchema/" + file)); }
    std::string Read(const std::string& file) const {
        return files::ReadFile(folder / ("out/DBSchema/" + file));
    }

    FakeGenerator generator{folder / "out"};
    FakePage page;
};

// Each case is a schema and expected.htm, the page that describes it to the last byte.
TEST_P(Report, IsWrittenAs) {
    MakeSchema(cases / GetParam());
    Create();
    EXPECT_EQ(Read("Main.htm"), files::ReadFile((cases / GetParam() / "expected.htm").string()));
}

INSTANTIATE_TEST_SUITE_P(Cases, Report, testing::ValuesIn(CaseNames(cases)),
                         [](const auto& test) { return test.param; });

TEST_F(Report, TellsItsProgressIfThereAreTables) {
    Create();
    EXPECT_EQ(generator.progress, Strings{});
    EXPECT_FALSE(Has("bigkey.gif") || Has("nonull.gif"));
    AddTable("B");
    AddTable("A");
    Create();
    EXPECT_EQ(generator.progress,
              (Strings{"StartProgress Creating VNT page 2", "StartStep Table: A", "FinishStep 1",
                       "StartStep Table: B", "FinishStep 1", "FinishProgress"}));
}

TEST_F(Report, ReplacesTheEarlierOne) {
    AddTable("A");
    fs::create_directory(folder / "out/DBSchema");
    for (const auto* file : {"Main.htm", "bigkey.gif", "nonull.gif"})
        files::ReplaceFile(folder / (std::string("out/DBSchema/") + file), std::string(100000, 'x'));
    Create();
    const std::string first = Read("Main.htm");
    EXPECT_TRUE(first.ends_with("</form></body></html>\r\n")) << first;
    for (const auto& [copy, picture] : {std::pair("bigkey.gif", "BigKey.gif"), {"nonull.gif", "NoNull.gif"}})
        EXPECT_EQ(Read(copy), files::ReadFile(TESSEL_SHARE "/Images/DBSchema/" + std::string(picture)));
    Create();
    EXPECT_EQ(Read("Main.htm"), first);
}

TEST_F(Report, DoesWithoutPictures) {
    AddTable("A");
    frontend->names[host::name_item::images] = folder / "nowhere";
    Create();
    EXPECT_TRUE(Has("Main.htm"));
    EXPECT_FALSE(Has("bigkey.gif"));
}

TEST_F(Report, ThatFailsLeavesWhatWasWritten) {
    AddTable("A");
    generator.fails = true;
    EXPECT_THROW(Create(), Error);
    const std::string written = Read("Main.htm");
    EXPECT_TRUE(written.ends_with("<body>\r\n<h1>The CAPTION</h1>\r\n")) << written;
}

TEST_F(Report, SaysWhyItCannotBeWritten) {
    const auto kind = [this] {
        try {
            Create();
            return ErrorKind::Argument;
        } catch (const Error& error) {
            return error.Kind();
        }
    };
    generator.outputFolder = folder / "no/folder";  // only the last folder is made
    EXPECT_EQ(kind(), ErrorKind::File);
    generator.outputFolder = folder / "out";
    fs::create_directories(folder / "out/DBSchema/Main.htm");
    EXPECT_EQ(kind(), ErrorKind::File);
    fs::remove(folder / "out/DBSchema/Main.htm");
    fs::create_symlink("/dev/full", folder / "out/DBSchema/Main.htm");
    EXPECT_EQ(kind(), ErrorKind::Full);
}

TEST_F(Report, KeepsTheOrderOfPiecesOfAnySize) {
    const std::string file = folder / "page";
    std::string expected;
    PageFile written(file);
    for (const std::size_t size : {10U, 300000U, 0U, 200000U, 200000U, 262144U, 262143U, 5U}) {
        const std::string text(size, static_cast<char>('a' + size % 26));
        written.Put(text);
        written.Line(text);
        expected += text + text + "\r\n";
    }
    written.Close();
    EXPECT_TRUE(files::ReadFile(file) == expected);
}

}  // namespace

}  // namespace tessel::test

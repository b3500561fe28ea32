#include "workbench/generator.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "platform/files/file_service.h"
#include "support/temporary_folder.h"
#include "tessel/error.h"

namespace tessel::workbench {

namespace {

namespace fs = std::filesystem;

class Generator : public testing::Test {
  protected:
    Generator() {
        fs::create_directories(folder / "share/report");
        files::ReplaceFile(folder / "share/report/Decor.css", "new style");
    }
    bool Mentions(const std::string& page, const std::string& text) const {
        return page.find(text) != std::string::npos;
    }

    TemporaryFolder folder;
    std::string output = folder / "a/b";
    std::vector<std::string> log;
    StandAloneGenerator generator{
        {.outputFolder = output,
         .share = folder / "share",
         .title = "R&D",
         .language = "ja",
         .drawing =
             [] {
                 return diagram::Diagram{{{"t1", "ONE", "", {0, 0, 12, 8}}, {"t2", "TWO", "", {0, 0, 12, 8}}},
                                         {{"k1", "FK", "t2", "t1", {}}}};
             },
         .log = [this](const std::string& line) { log.push_back(line); }}};
};

TEST_F(Generator, PutsTheStyleSheetBesideThePagesOnce) {
    EXPECT_EQ(generator.OutputFolder(), output);
    EXPECT_EQ(files::ReadFile(output + "/Decor.css"), "new style");
    files::ReplaceFile(output + "/Decor.css", "own style");
    (void)generator.OutputFolder();
    EXPECT_EQ(files::ReadFile(output + "/Decor.css"), "own style");
}

TEST_F(Generator, TellsTheBrowserWhatAPageIs) {
    const std::string heading = generator.Heading("A<B 表");
    EXPECT_TRUE(heading.starts_with("<meta charset=\"utf-8\">")) << heading;
    for (const auto* part :
         {"content=\"ja\"", "<title>A&lt;B 表</title>", "<h1>A&lt;B 表</h1>", "R&amp;D</a>"})
        EXPECT_TRUE(Mentions(heading, part)) << part << "\n" << heading;
}

TEST_F(Generator, DrawsByTheDiagramFileOrByItself) {
    const std::string file = folder / "a.dgm.xml";
    const std::string absent = generator.DiagramFragment(file, "Page");
    EXPECT_TRUE(Mentions(absent, "ONE") && Mentions(absent, "FK") && Mentions(absent, "aria-label=\"Page\""));
    files::ReplaceFile(file, R"(<d><box key="t1" x="0" y="0"/><box key="t2" x="100" y="50"/></d>)");
    const std::string placed = generator.DiagramFragment(file, "Page");
    EXPECT_TRUE(Mentions(placed, R"(<rect x="12" y="12")") && Mentions(placed, R"(<rect x="412" y="212")"))
        << placed;

    for (const auto& [content, faults] : {std::pair("<d/>", 0U), {"<d>", 1U}}) {
        files::ReplaceFile(file, content);
        EXPECT_EQ(generator.DiagramFragment(file, "Page"), absent);
        ASSERT_EQ(log.size(), faults);
    }
    EXPECT_TRUE(Mentions(log[0], "a.dgm.xml"));
}

TEST_F(Generator, ListsEveryPageUnlessTheIndexIsOfOthers) {
    for (const auto* name : {"Ü & 50%", "Alpha", "empty"}) fs::create_directories(output + "/" + name);
    for (const auto* name : {"Ü & 50%", "Alpha"}) files::ReplaceFile(output + "/" + name + "/Main.htm", "");
    fs::create_symlink("Main.htm", output + "/empty/Main.htm");  // leads to itself
    generator.WriteIndex();
    generator.WriteIndex();  // its own file is replaced
    const std::string index = files::ReadFile(output + "/index.html");
    EXPECT_TRUE(Mentions(index,
                         "<li><a href=\"Alpha/Main.htm\">Alpha</a></li>\n"
                         "<li><a href=\"%C3%9C%20%26%2050%25/Main.htm\">Ü &amp; 50%</a></li>\n</ul>"))
        << index;
    EXPECT_TRUE(log.empty());
    files::ReplaceFile(output + "/index.html", "<h1>My home page</h1>");
    generator.WriteIndex();
    EXPECT_EQ(files::ReadFile(output + "/index.html"), "<h1>My home page</h1>");
    EXPECT_EQ(log.size(), 1U);
}

}  // namespace

}  // namespace tessel::workbench

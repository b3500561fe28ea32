#include <gtest/gtest.h>

#include <fstream>

#include "lines/json_values.h"
#include "support/child_program.h"
#include "support/temporary_folder.h"

namespace tessel::test {
namespace {

class Host : public ChildProgram {
  public:
    explicit Host(const std::string& progId, const std::string& parameter = "",
                  const std::string& library = TESSEL_TEST_ADD_ON)
        : ChildProgram({TESSEL_ADDON_HOST, library, progId, parameter}) {}

    // The lines up to the end of the output, with the exit code behind them.
    std::vector<std::string> RunToTheEnd() {
        std::vector<std::string> lines;
        for (std::string line = ReadLine(); !line.empty(); line = ReadLine()) lines.push_back(line);
        lines.push_back(std::to_string(Wait()));
        return lines;
    }
};

using Lines = std::vector<std::string>;

TEST(AddOnHost, EndsWithTheResultOrTheError) {
    const std::tuple<const char*, const char*, Lines> cases[] = {
        {"Test.Throw", "", {R"({"error":{"message":"it \"went\" wrong\nin two lines"}})", "0"}},
        {"Test.Throw", "number", {R"({"error":{"message":"The add-on failed without saying why."}})", "0"}},
        {"Test.Crash", "", {"-1"}},
        {"Test.Exit", "", {"The add-on ended its program before it came to its end.", "2"}},
        {"Test.OwnObject",
         "",
         {R"({"error":{"message":"An object of the add-on's own cannot be passed to the editor."}})", "0"}},
        {"Test.None",
         "",
         {R"({"error":{"message":"There is no class with the identifier \"Test.None\"."}})", "0"}},
    };
    for (const auto& [progId, parameter, lines] : cases)
        EXPECT_EQ(Host(progId, parameter).RunToTheEnd(), lines) << progId << parameter;
}

TEST(AddOnHost, KeepsWhatAToolPrintsOutOfTheLines) {
    ChildProgram host({"/bin/sh", "-c", "exec \"$0\" \"$@\" 2>/dev/null", TESSEL_ADDON_HOST,
                       TESSEL_TEST_ADD_ON, "Test.Chatter", "a;b=\"c\""});
    EXPECT_EQ(host.ReadLine(), R"({"result":"a;b=\"c\" and no input"})");
}

TEST(AddOnHost, AsksTheEditorLineByLine) {
    const std::pair<std::string, std::string> talk[] = {
        {R"({"on":"Frontend","member":"ProjectObject","args":[]})",
         R"({"result":{"object":"PROJECT","handle":12},"args":[]})"},
        {R"({"on":"Frontend","member":"Language","args":[]})", R"({"result":"ko","args":[]})"},
        {R"({"member":"ToolID","args":[]})", R"({"result":"VNT","args":[]})"},
        {R"({"on":"Frontend","member":"Echo","args":[{"handle":12}]})",
         R"({"result":"twelve","args":[{"object":"PROJECT","handle":12}]})"},
    };
    Host host("Test.Ask");
    for (const auto& [call, answer] : talk) {
        EXPECT_EQ(host.ReadLine(), call);
        host.WriteLine(answer);
    }
    EXPECT_EQ(host.RunToTheEnd(), (Lines{R"({"result":"ko|VNT|twelve"})", "0"}));
}

TEST(AddOnHost, ThrowsInTheToolWhatTheEditorAnswers) {
    for (const auto kind : {"busy", "read only", "conversion"}) {
        Host host("Test.FailedCall");
        (void)host.ReadLine();
        host.WriteLine(R"({"error":{"message":"no.","kind":")" + std::string(kind) + "\"}}");
        EXPECT_EQ(host.ReadLine(), R"({"result":")" + std::string(kind) + R"(: no."})");
    }
}

TEST(AddOnHost, EndsWithTheEditor) {
    for (const auto progId : {"Test.Hang", "Test.Ask"}) {
        Host host(progId);
        (void)host.ReadLine();
        host.CloseInput();
        EXPECT_EQ(host.Wait(), 1) << progId;
    }
}

TEST(AddOnHost, SaysWhyALibraryDoesNotLoad) {
    const TemporaryFolder folder;
    const std::string text = folder / "text.so";
    std::ofstream(text) << "no library";
    for (const auto& library : {text, folder / "none.so", std::string("libc.so.6")}) {
        const Json last = Json::parse(Host("Test.Ask", "", library).RunToTheEnd().front());
        const std::string message = last["error"]["message"];
        EXPECT_NE(message.find("The component /"), std::string::npos) << message;
        EXPECT_NE(message.find(library), std::string::npos) << message;
        EXPECT_EQ(ChildProgram({TESSEL_ADDON_HOST, "--classes", library}).Wait(), 2) << library;
    }
}

TEST(AddOnHost, ListsItsClasses) {
    ChildProgram host({TESSEL_ADDON_HOST, "--classes", TESSEL_TEST_ADD_ON});
    EXPECT_EQ(host.Feed({}), (Lines{"Test.Chatter", "Test.Ask", "Test.FailedCall", "Test.Throw", "Test.Crash",
                                    "Test.Hang", "Test.OwnObject", "Test.Exit"}));
    EXPECT_EQ(host.Wait(), 0);
    EXPECT_EQ(ChildProgram({TESSEL_ADDON_HOST}).Wait(), 2);
}

}  // namespace
}  // namespace tessel::test

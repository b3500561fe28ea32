#include "runner/component_list.h"

#include <sys/stat.h>

#include <functional>
#include <thread>

#include "runner/library_classes.h"
#include "runner/runner_test.h"
#include "runner/trusted_path.h"

namespace tessel::test {

namespace {

namespace fs = std::filesystem;
using Kind = RegisteredClass::Kind;

class Components : public RunnerTest {
  protected:
    // "LIBRARY-OR-PROGRAM PATH", or why there is none.
    std::string Found(const std::string& progID) const {
        try {
            const auto list = ComponentList::Load(programs);
            const auto& found = list.ClassOf(progID);
            return (found.kind == Kind::Library ? "library " : "program ") + found.file;
        } catch (const Error& error) {
            return error.what();
        }
    }
    const std::string user = folder / "config/tessel/components.xml";
};

TEST_F(Components, AreSoughtInBothRegistriesTheUsersFirst) {
    EXPECT_EQ(Found("A.B"), "There is no class with the identifier \"A.B\".");
    WriteRegistry(
        "<!-- ours --><CLASS PROGID='A.B' LIBRARY='addons/../libs/a.so'/>"
        "<OTHER/><CLASS PROGID='C' PROGRAM='/c'/>");
    EXPECT_EQ(Found("a.b"), "library " + programs + "/libs/a.so");
    EnterClasses(user, {{"C", Kind::Program, folder / "tool"}, {"D", Kind::Library, folder / "d.so"}});
    EXPECT_EQ(Found("C"), "program " + (folder / "tool"));
    EXPECT_EQ(RemoveClasses(user, folder / "tool"), std::vector<std::string>{"C"});
    EXPECT_EQ(RemoveClasses(user, "d"), std::vector<std::string>{"D"});
    EXPECT_EQ(Found("C"), "program /c");
    EnterClasses(programs + "/components.xml", {{"a.B", Kind::Program, programs + "/addons/t"}});
    const std::string written = Content(programs + "/components.xml");
    EXPECT_NE(written.find("PROGRAM=\"addons/t\""), std::string::npos) << written;
    EXPECT_NE(written.find("<!-- ours -->"), std::string::npos) << written;
    EXPECT_EQ(written.find("a.so"), std::string::npos) << written;
}

TEST_F(Components, OfADamagedRegistryAreAbsentAndItStaysAsItIs) {
    EnterClasses(user, {{"U", Kind::Program, "/u"}});
    const std::pair<const char*, const char*> cases[] = {
        {"<COMPONENTS>\n<CLASS", "components.xml, line 2"},
        {"<CLASSES/>", "COMPONENTS"},
        {"<COMPONENTS><CLASS PROGID='A'/></COMPONENTS>", "number 1"},
        {"<COMPONENTS><CLASS PROGID='A' PROGRAM='/a' LIBRARY='/b'/></COMPONENTS>", "number 1"},
        {"", "components.xml"},
    };
    const std::string path = programs + "/components.xml";
    for (const auto& [content, fault] : cases) {
        Write(path, content);
        EXPECT_EQ(Found("U"), "program /u");
        EXPECT_NE(Found("A").find(fault), std::string::npos) << Found("A");
        EXPECT_THROW(EnterClasses(path, {{"B", Kind::Program, "/b"}}), Error);
        EXPECT_THROW(RemoveClasses(path, "A"), Error);
        EXPECT_EQ(Content(path), content);
    }
}

TEST_F(Components, OfNoOrdinaryFileAreAFault) {
    const std::string path = programs + "/components.xml";
    const std::function<void()> makings[] = {
        [&] { fs::create_directory(path); },
        [&] { fs::create_symlink(folder / "none", path); },
        [&] { ASSERT_EQ(mkfifo(path.c_str(), S_IRWXU), 0); },
    };
    for (const auto& make : makings) {
        make();
        EXPECT_NE(Found("A").find(path), std::string::npos) << Found("A");
        EXPECT_THROW(EnterClasses(path, {{"B", Kind::Program, "/b"}}), Error);
        EXPECT_THROW(RemoveClasses(path, "A"), Error);
        fs::remove(path);
    }
}

TEST_F(Components, AreNotEnteredUnderUnfitNames) {
    for (const char* progID : {"", " ", "A\nB", "A\x7f"})
        EXPECT_THROW(EnterClasses(user, {{"Fit", Kind::Program, "/f"}, {progID, Kind::Program, "/p"}}),
                     Error);
    EXPECT_FALSE(fs::exists(user));
}

TEST_F(Components, EnteredAtOnceAreAllKept) {
    constexpr int writers = 8;
    std::vector<std::thread> writing;
    for (int i = 0; i < writers; ++i)
        writing.emplace_back([&, i] {
            EnterClasses(user, {{"P" + std::to_string(i), Kind::Program, "/p"}});
        });
    for (auto& thread : writing) thread.join();
    EXPECT_EQ(ReadComponents(user).classes.size(), std::size_t(writers));
}

TEST_F(Components, ThatOthersMayReplaceAreNotTrusted) {
    fs::create_directories(folder / "a/b");
    const std::string file = folder / "a/b/file";
    Write(file, "");
    fs::create_symlink(file, folder / "link");
    struct Case {
        std::string path;
        fs::perms permissions;
        bool isTrusted;
    };
    const fs::perms mine = fs::perms::owner_all;
    const Case cases[] = {
        {file, mine | fs::perms::group_read | fs::perms::others_read, true},
        {file, mine | fs::perms::others_write, false},
        {folder / "a", mine | fs::perms::others_all, false},
        {folder / "a", mine | fs::perms::others_all | fs::perms::sticky_bit, true},
        {folder / "a/b", mine | fs::perms::group_all, true},  // the user's own group
    };
    for (const auto& [path, permissions, isTrusted] : cases) {
        fs::permissions(path, permissions);
        for (const auto& way : {file, folder / "link"}) {
            const std::string why = WhyNotTrusted(way);
            EXPECT_EQ(why.empty(), isTrusted) << way << why;
            EXPECT_EQ(why.find("'" + path + "'") == std::string::npos, isTrusted) << why;
        }
        fs::permissions(path, mine);
    }
    EXPECT_FALSE(WhyNotTrusted(folder / "none").empty());
    fs::create_directory(folder / "open");
    fs::permissions(folder / "open", fs::perms::all);
    fs::create_symlink("../a/./b", folder / "open/middle");
    fs::create_symlink("open/middle", folder / "first");
    EXPECT_NE(WhyNotTrusted(folder / "first/file").find("/open, so"), std::string::npos);
    fs::permissions(folder / "open", mine);
    EXPECT_EQ(WhyNotTrusted(folder / "first/file"), "");
    fs::create_symlink("loop", folder / "loop");
    EXPECT_FALSE(WhyNotTrusted(folder / "loop").empty());
    WriteRegistry("<CLASS PROGID='A' PROGRAM='/a'/>");
    fs::permissions(programs + "/components.xml", mine | fs::perms::others_write);
    EXPECT_NE(Found("A").find("chmod o-w"), std::string::npos) << Found("A");
}

TEST_F(Components, OfALibraryAreAskedInAProcessOfTheirOwn) {
    const std::string library = folder / "lib.so";
    WriteProgram("tessel-addon-host", "echo A.One; echo \"$1 $2\"");
    EXPECT_EQ(LibraryClasses(library, programs), (std::vector<std::string>{"A.One", "--classes " + library}));
    for (const char* failing : {"echo A.One; kill -SEGV $$", "echo no entry point >&2; exit 1"}) {
        WriteProgram("tessel-addon-host", failing);
        EXPECT_THROW((void)LibraryClasses(library, programs), Error) << failing;
    }
}

}  // namespace

}  // namespace tessel::test

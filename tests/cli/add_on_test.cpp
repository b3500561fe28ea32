#include <gtest/gtest.h>

#include <filesystem>

#include "support/child_program.h"
#include "support/temporary_folder.h"

namespace tessel::test {

namespace {

class AddOnCommands : public testing::Test {
  protected:
    AddOnCommands() {
        setenv("XDG_CONFIG_HOME", (folder / "config").c_str(), 1);
        EXPECT_EQ(Run({"new", workspace, "--project", "Works"}), 0);
    }
    ~AddOnCommands() override { unsetenv("XDG_CONFIG_HOME"); }

    int Run(const std::vector<std::string>& arguments) {
        std::vector<std::string> command{TESSEL_PROGRAM, "--workspace", workspace};
        command.insert(command.end(), arguments.begin(), arguments.end());
        ChildProgram program(command);
        output.clear();
        for (const auto& line : program.Feed({})) output += line + "\n";
        return program.Wait();
    }
    // Registers the shell script as the class "Shell.Tool".
    std::string Register(const std::string& script) {
        const std::string file = folder / "tool";
        Write(file, "#!/bin/sh\ncall() { printf '%s\\n' \"$1\"; read -r answer; }\n" + script + "\n");
        std::filesystem::permissions(file, std::filesystem::perms::owner_all);
        EXPECT_EQ(Run({"register", file, "Shell.Tool"}), 0) << output;
        return file;
    }
    std::size_t Tables() {
        EXPECT_EQ(Run({"addon", "run", "shell.tool", "count"}), 0) << output;
        return std::stoul(output);
    }

    TemporaryFolder folder;
    std::string workspace = folder / "works";
    std::string output;
};

TEST_F(AddOnCommands, RegisterRunAndUnregister) {
    const std::string add =
        R"(call '{"member":"TableAdd","args":["BOOK",0,null,{"date":"2026-01-31"},null,null]}')";
    const std::string file = Register(
        "case $1 in\n"
        "add) " +
        add +
        ";;\n"
        "addAndFail) " +
        add +
        "; echo wrong >&2; exit 1;;\n"
        "addAndHang) " +
        add +
        "; kill -INT $PPID; sleep 60;;\n"
        "hangUp) kill -HUP $PPID; sleep 0.2;;\n"
        "ask) call '{\"on\":\"ToolWindow\",\"member\":\"Message\",\"args\":[\"Go?\",\"none\",\"YesNo\"]}'\n"
        "  echo \"$answer\" | sed 's/,\"args.*/}/';;\n"
        "count) call '{\"on\":\"ProjectDB\",\"member\":\"Select\",\"args\":[\"select * from Tables\"]}'\n"
        "  echo \"{\\\"result\\\":$(echo \"$answer\" | grep -o TableName | wc -l)}\";;\n"
        "esac");
    EXPECT_EQ(Run({"addon", "list"}), 0);
    EXPECT_NE(output.find("Shell.Tool: " + file), std::string::npos) << output;

    EXPECT_EQ(Run({"addon", "run", "Shell.Tool", "addAndFail"}), 2);
    EXPECT_NE(output.find("wrong"), std::string::npos) << output;
    EXPECT_EQ(Run({"addon", "run", "Shell.Tool", "addAndHang", "--keep"}), 2);
    EXPECT_EQ(Tables(), 0U);
    const std::string program = std::string("exec '") + TESSEL_PROGRAM + "' --workspace '" + workspace + "' ";
    EXPECT_EQ(
        ChildProgram({"/bin/sh", "-c", "trap '' HUP; " + program + "addon run Shell.Tool hangUp"}).Wait(), 0);
    EXPECT_EQ(Run({"addon", "run", "Shell.Tool", "ask", "--answers", "[\"Yes\"]"}), 0);
    EXPECT_EQ(output, "Go? -> \"Yes\"\nYes\n");
    EXPECT_EQ(Run({"addon", "run", "Shell.Tool", "addAndFail", "--keep"}), 2);
    EXPECT_EQ(Tables(), 1U);
    EXPECT_EQ(Run({"addon", "run", "Shell.Tool", "add", "--verify"}), 1);  // the table has no columns

    ChildProgram deaf({"/bin/sh", "-c", program + "addon run Shell.Tool count 2>&1 >/dev/full"});
    EXPECT_EQ(deaf.ReadLine(), "tessel: The output cannot be written. What the tool changed is kept.");
    EXPECT_EQ(deaf.Wait(), 2);

    EXPECT_EQ(Run({"unregister", file}), 0);
    EXPECT_EQ(output, "Shell.Tool\n");
    EXPECT_EQ(Run({"unregister", "Shell.Tool"}), 2);
    EXPECT_EQ(Run({"addon", "run", "Shell.Tool"}), 2);
}

TEST_F(AddOnCommands, RefuseWhatIsNoToolAndSayWhichRegistryIsDamaged) {
    const std::string file = Register("");
    std::filesystem::permissions(file, std::filesystem::perms::owner_read);
    EXPECT_EQ(Run({"register", file, "Shell.Other"}), 2);
    EXPECT_EQ(Run({"register", folder / "none", "Shell.Other"}), 2);
    EXPECT_EQ(Run({"register", file}), 2);
    const std::string registry = folder / "config/tessel/components.xml";
    Write(registry, "<COMPONENTS>");
    EXPECT_EQ(Run({"addon", "list"}), 2);
    EXPECT_NE(output.find(registry + ", line 1"), std::string::npos) << output;
    EXPECT_EQ(Run({"register", "/bin/true", "Shell.Other"}), 2);
    EXPECT_EQ(Content(registry), "<COMPONENTS>");
}

}  // namespace

}  // namespace tessel::test

#pragma once

#include <filesystem>

#include "support/schema_test.h"

namespace tessel::test {

// An installation of its own, with a registry, and a user without one.
class RunnerTest : public SchemaTest {
  protected:
    RunnerTest() {
        std::filesystem::create_directory(programs);
        setenv("XDG_CONFIG_HOME", (folder / "config").c_str(), 1);
        state.programFolder = programs;
    }
    ~RunnerTest() override { unsetenv("XDG_CONFIG_HOME"); }

    // A program of the shell's, in the folder of the installation's programs. It makes a call, and waits for
    // its answer, by the function call.
    std::string WriteProgram(const std::string& name, const std::string& script) {
        const std::string path = programs + "/" + name;
        Write(path, "#!/bin/sh\ncall() { printf '%s\\n' \"$1\"; read -r answer; }\n" + script + "\n");
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
        return path;
    }
    void WriteRegistry(const std::string& classes) {
        Write(programs + "/components.xml", "<COMPONENTS>" + classes + "</COMPONENTS>");
    }

    const std::string programs = folder / "programs";
};

}  // namespace tessel::test

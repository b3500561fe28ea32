#pragma once

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

namespace tessel::test {

// A program that runs beside the test, its input and output in the test's hands.
class ChildProgram {
  public:
    explicit ChildProgram(const std::vector<std::string>& command) {
        int input[2];
        int output[2];
        if (pipe2(input, O_CLOEXEC) != 0 || pipe2(output, O_CLOEXEC) != 0) std::abort();
        child_ = fork();
        if (child_ == 0) Become(command, input[0], output[1]);
        close(input[0]);
        close(output[1]);
        input_ = fdopen(input[1], "w");
        output_ = fdopen(output[0], "r");
    }
    ~ChildProgram() {
        CloseInput();
        if (child_ > 0) Kill();
        std::fclose(output_);
    }
    ChildProgram(const ChildProgram&) = delete;
    ChildProgram& operator=(const ChildProgram&) = delete;

    // Whether the program was there to take the line.
    bool WriteLine(const std::string& line) {
        return std::fputs((line + "\n").c_str(), input_) >= 0 && std::fflush(input_) == 0;
    }
    // The next line without its end; empty at the end of the output, or for a line that broke off.
    std::string ReadLine() {
        std::string line;
        for (int character; (character = std::fgetc(output_)) != EOF;) {
            if (character == '\n') return line;
            line += static_cast<char>(character);
        }
        return {};
    }
    // Hands over these lines as the whole input; the lines that come out, up to an empty one or the end.
    std::vector<std::string> Feed(const std::vector<std::string>& input) {
        for (const auto& line : input) WriteLine(line);
        CloseInput();
        std::vector<std::string> lines;
        for (std::string line = ReadLine(); !line.empty(); line = ReadLine()) lines.push_back(line);
        return lines;
    }
    void CloseInput() {
        if (std::FILE* input = std::exchange(input_, nullptr)) std::fclose(input);
    }
    void Kill() {
        kill(child_, SIGKILL);
        Wait();
    }
    // The exit code; -1 when a signal ended it.
    int Wait() {
        int status = 0;
        waitpid(child_, &status, 0);
        child_ = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

  private:
    [[noreturn]] static void Become(const std::vector<std::string>& command, int input, int output) {
        dup2(input, STDIN_FILENO);
        dup2(output, STDOUT_FILENO);
        dup2(output, STDERR_FILENO);
        std::vector<char*> arguments;
        for (const auto& argument : command) arguments.push_back(const_cast<char*>(argument.c_str()));
        arguments.push_back(nullptr);
        execv(arguments[0], arguments.data());
        _exit(127);
    }

    pid_t child_ = -1;
    std::FILE* input_ = nullptr;
    std::FILE* output_ = nullptr;
};

}  // namespace tessel::test

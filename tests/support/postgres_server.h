#pragma once

#include <fcntl.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <pwd.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "support/temporary_folder.h"

namespace tessel::test {

// A PostgreSQL server of the test's own, on a socket in a fresh folder. It listens on no network, and ends
// when the test program does, however that ends.
class PostgresServer {
  public:
    // The test program's one server, started at its first use.
    static PostgresServer& Shared() {
        static PostgresServer server;
        return server;
    }

    // A new, empty database in UTF-8; returns its name.
    std::string MakeDatabase() {
        const std::string name = "test" + std::to_string(++databases_);
        Run("postgres", "create database " + name);
        return name;
    }

    // What a client needs to reach the database, such as "postgresql://postgres@/test1?host=%2Ftmp%2Fpg".
    [[nodiscard]] std::string Address(const std::string& database) const {
        std::string host;
        for (const char c : folder_) host += c == '/' ? std::string("%2F") : std::string(1, c);
        return "postgresql://" + std::string(superuser) + "@/" + database + "?host=" + host;
    }

    // Runs statements, or a script of them, up to the first that fails, and throws what the server says then.
    // Returns what the queries among them give: a row a line, fields parted by '|', Null as an empty field.
    std::vector<std::string> Run(const std::string& database, const std::string& sql) {
        const std::string file = folder_ + "/statements.sql";
        std::ofstream(file, std::ios::binary) << sql;
        return Output({Program("psql"), "-XqAt", "-v", "ON_ERROR_STOP=1", "-f", file, Address(database)});
    }

    PostgresServer(const PostgresServer&) = delete;
    PostgresServer& operator=(const PostgresServer&) = delete;

  private:
    static constexpr const char* superuser = "postgres";

    PostgresServer() {
        MakeFolder();
        const std::string data = folder_ + "/data";
        Output({Program("initdb"), "-D", data, "-U", superuser, "-A", "trust", "-E", "UTF8", "--locale=C",
                "--no-sync", "--no-instructions", "--wal-segsize=1"});
        log_ = folder_ + "/log";
        server_ = Start({Program("postgres"), "-D", data, "-k", folder_, "-c", "listen_addresses=", "-c",
                         "fsync=off", "-c", "full_page_writes=off", "-c", "max_wal_size=8MB", "-c",
                         "min_wal_size=2MB", "-c", "shared_buffers=32MB"},
                        log_);
        WaitUntilReady();
    }
    ~PostgresServer() {
        kill(server_, SIGINT);
        waitpid(server_, nullptr, 0);
        std::filesystem::remove_all(folder_);
    }

    // The server refuses to run as root, so its folder and its programs are nobody's then.
    void MakeFolder() {
        folder_ = MakeTemporaryFolder("tessel-pg");
        chmod(folder_.c_str(), 0755);
        if (geteuid() != 0) return;
        const passwd* nobody = getpwnam("nobody");
        if (!nobody || chown(folder_.c_str(), nobody->pw_uid, nobody->pw_gid) != 0)
            throw std::runtime_error("the folder of PostgreSQL cannot be nobody's");
        user_ = nobody->pw_uid;
        group_ = nobody->pw_gid;
    }

    void WaitUntilReady() {
        const std::vector<std::string> question{Program("pg_isready"), "-q", "-h", folder_};
        while (Status(Start(question, folder_ + "/ready")) != 0) {
            if (waitpid(server_, nullptr, WNOHANG) != 0)
                throw std::runtime_error("PostgreSQL does not start: " + Text(log_));
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
    }

    // The program of the newest version that is installed.
    static std::string Program(const std::string& name) {
        std::vector<std::pair<int, std::string>> found;
        const std::filesystem::path versions = "/usr/lib/postgresql";
        if (std::filesystem::exists(versions))
            for (const auto& version : std::filesystem::directory_iterator(versions))
                if (const auto program = version.path() / "bin" / name; std::filesystem::exists(program))
                    found.emplace_back(std::stoi(version.path().filename()), program.string());
        if (found.empty()) throw std::runtime_error("there is no PostgreSQL with the program " + name);
        return std::ranges::max(found).second;
    }

    std::vector<std::string> Output(const std::vector<std::string>& command) {
        const std::string file = folder_ + "/output";
        if (Status(Start(command, file)) != 0) throw std::runtime_error(Text(file));
        std::vector<std::string> lines;
        std::ifstream stream(file);
        for (std::string line; std::getline(stream, line);) lines.push_back(line);
        return lines;
    }

    // Starts it as the server's user, all that it writes going to the file; it ends when this program does.
    [[nodiscard]] pid_t Start(const std::vector<std::string>& command, const std::string& output) const {
        const pid_t child = fork();
        if (child != 0) return child;
        if (geteuid() == 0 && (setgroups(0, nullptr) != 0 || setgid(group_) != 0 || setuid(user_) != 0))
            _exit(126);
        prctl(PR_SET_PDEATHSIG, SIGQUIT);
        setenv("LC_ALL", "C", 1);
        setenv("PGCLIENTENCODING", "UTF8", 1);
        const int file = open(output.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
        if (chdir("/") != 0 || dup2(file, STDOUT_FILENO) < 0 || dup2(file, STDERR_FILENO) < 0) _exit(126);
        std::vector<char*> arguments;
        for (const auto& argument : command) arguments.push_back(const_cast<char*>(argument.c_str()));
        arguments.push_back(nullptr);
        execv(arguments[0], arguments.data());
        _exit(127);
    }

    static int Status(pid_t child) {
        int status = -1;
        waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    static std::string Text(const std::string& file) {
        std::ostringstream text;
        text << std::ifstream(file).rdbuf();
        return text.str();
    }

    std::string folder_;
    std::string log_;
    uid_t user_ = 0;
    gid_t group_ = 0;
    pid_t server_ = -1;
    int databases_ = 0;
};

}  // namespace tessel::test

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <random>
#include <thread>

#include "platform/files/file_service.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace tessel::test {

namespace {

constexpr int kills = 25;

// Does the work in a process of its own, which is killed in the middle of it.
void KillWithin(std::chrono::microseconds time, const std::function<void()>& work) {
    const pid_t child = fork();
    if (child == 0) {
        work();
        _exit(0);
    }
    std::this_thread::sleep_for(time);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
}

TEST(KilledPrograms, LeaveFilesWhole) {
    const TemporaryFolder folder;
    const std::string file = folder / "options.xml";
    const std::string contents[] = {std::string(300'000, 'a'), std::string(500'000, 'b')};
    Write(file, contents[0]);
    std::mt19937 moments(3);
    for (int round = 0; round < kills; ++round) {
        KillWithin(std::chrono::microseconds(moments() % 3000), [&] {
            for (int i = 1;; ++i) files::ReplaceFile(file, contents[i % 2]);
        });
        const std::string found = Content(file);
        ASSERT_TRUE(found == contents[0] || found == contents[1]) << found.size();
    }
}

TEST(KilledPrograms, LeaveAFolderWholeOrDeleted) {
    const TemporaryFolder folder;
    const std::string schema = folder / "DBSCHEMA";
    std::mt19937 moments(5);
    int begun = 0;
    for (int round = 0; round < kills; ++round) {
        std::filesystem::create_directory(schema);
        for (int i = 0; i < 300; ++i) Write(schema + "/" + std::to_string(i), "x");
        KillWithin(std::chrono::microseconds(moments() % 4000), [&] { files::DeleteFolder(schema); });
        if (std::filesystem::exists(schema))
            ASSERT_EQ(std::distance(std::filesystem::directory_iterator(schema), {}), 300);
        else
            ++begun;
    }
    EXPECT_GT(begun, 0);
    files::DeleteFolder(schema);
    EXPECT_TRUE(folder.Names().empty()) << "what the killed programs had begun to delete";
}

}  // namespace

}  // namespace tessel::test

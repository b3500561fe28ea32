#include "workbench/stored_log.h"

#include <gtest/gtest.h>

#include <thread>

#include "platform/files/file_lock.h"
#include "support/temporary_folder.h"

namespace tessel::workbench {
namespace {

std::vector<std::string> Shown(const StoredLog& log) {
    std::vector<std::string> lines;
    for (const auto& activity : log.Activities()) lines.push_back(activity.action + "|" + activity.result);
    return lines;
}

class StoredLogTest : public testing::Test {
  protected:
    const TemporaryFolder folder_;
    const std::string file_ = folder_ / "activity.log";
};

TEST_F(StoredLogTest, KeepsOneLineAnActivity) {
    StoredLog log(file_);
    log.Write("Drop table\tA\r\nB", "Done\x7f");
    const std::string first = Content(file_);
    EXPECT_EQ(first, FormatIso(log.Activities()[0].when) + "\tDrop table A  B\tDone \n");
    log.Write("表を削除", "");
    EXPECT_EQ(Shown(log), (std::vector<std::string>{"Drop table A  B|Done ", "表を削除|"}));
    EXPECT_EQ(Shown(StoredLog(file_)), Shown(log));
    EXPECT_TRUE(Content(file_).starts_with(first));
}

TEST_F(StoredLogTest, ReadsTheNewestOfWhatIsThere) {
    const std::string line = "2026-01-31T10:00:00\ta\tb\tc\n";
    Write(file_, "no activity\n2026-13-31T10:00:00\ta\tb\n2026-01-31T10:00:00\ta\n\n" + line +
                     "2026-01-31T10:00:01\tlast\twithout an end");
    const StoredLog log(file_);
    EXPECT_EQ(Shown(log), (std::vector<std::string>{"a|b c", "last|without an end"}));
    EXPECT_EQ(log.Activities()[0].when, *ParseIso("2026-01-31T10:00:00"));

    std::string many = "2026-01-31T10:00:00\ttoo old\t\n";
    for (std::size_t i = 0; i < StoredLog::mostRead; ++i) many += line;
    Write(file_, many);
    EXPECT_EQ(Shown(StoredLog(file_)), std::vector<std::string>(StoredLog::mostRead, "a|b c"));
}

TEST_F(StoredLogTest, IsCutToItsLastHalf) {
    const std::string line = "2026-01-31T10:00:00\t" + std::string(9, 'a') + "\t\n";
    std::string content;
    while (content.size() + line.size() <= StoredLog::mostBytes) content += line;
    Write(file_, content);
    StoredLog(file_).Write("last", "");
    const std::string left = Content(file_);
    EXPECT_LE(left.size(), StoredLog::mostBytes / 2);
    EXPECT_GT(left.size(), StoredLog::mostBytes / 2 - line.size());
    EXPECT_TRUE(left.starts_with(line));
    EXPECT_TRUE(left.ends_with("\tlast\t\n"));
}

TEST_F(StoredLogTest, ACutLosesNoLineOfAnotherProgram) {
    const auto write = [&] {
        StoredLog log(file_);
        for (int i = 0; i < 20; ++i) log.Write("a", "b");
    };
    for (int round = 0; round < 40; ++round) {
        Write(file_, std::string(StoredLog::mostBytes - 1, 'x') + "\n");  // the next line cuts it
        {
            const std::jthread one(write);
            const std::jthread other(write);
        }
        ASSERT_EQ(StoredLog(file_).Activities().size(), 40U);
    }
}

TEST_F(StoredLogTest, GoesOnWhereItCannotBeKept) {
    StoredLog log(folder_ / "none/activity.log");
    std::vector<host::ActivityLog::Change> changes;
    log.Register([&](auto change) { changes.push_back(change); });
    log.Write("Verify", "Done");
    log.SetVisible(true);
    log.SetVisible(true);
    log.SetDocked(false);
    using Change = host::ActivityLog::Change;
    EXPECT_EQ(changes, (std::vector{Change::Written, Change::State, Change::State}));
    EXPECT_EQ(Shown(log), std::vector<std::string>{"Verify|Done"});
    StoredLog busy(file_);
    const files::FileLock held(file_);
    busy.Write("Verify", "Done");
    EXPECT_EQ(Shown(busy), Shown(log));
    EXPECT_EQ(Content(file_), "");
    log.Register(nullptr);
    log.Write("Verify", "Done");
    EXPECT_EQ(changes.size(), 3U);
}

}  // namespace
}  // namespace tessel::workbench

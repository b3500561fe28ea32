#include "platform/files/file_lock.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"
#include "tessel/error.h"

namespace tessel::files {
namespace {

TEST(FileLock, KeepsOthersOutWhileItLives) {
    const TemporaryFolder folder;
    const auto path = (folder / "lock");
    {
        const FileLock lock(path);
        try {
            const FileLock second(path, std::chrono::milliseconds(30));
            ADD_FAILURE() << "a second lock was given";
        } catch (const Error& error) {
            EXPECT_EQ(error.Kind(), ErrorKind::Busy);
        }
    }
    EXPECT_NO_THROW(FileLock(path, std::chrono::milliseconds(0)));
    EXPECT_THROW(FileLock((folder / "none/lock")), Error);
}

}  // namespace
}  // namespace tessel::files

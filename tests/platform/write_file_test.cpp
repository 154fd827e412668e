#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

#include "platform/fault.h"
#include "platform/text.h"
#include "testkit/file_text.h"
#include "testkit/temporary_folder.h"

namespace orvent::platform {
namespace {

/// The process may write no file beyond `bytes`, as if the disk were full.
class FullDisk {
  public:
    explicit FullDisk(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &old_);
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{bytes, old_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &old_);
        std::signal(SIGXFSZ, SIG_DFL);
    }

  private:
    rlimit old_{};
};

std::size_t filesIn(const std::filesystem::path& folder) {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder), {}));
}

TEST(WriteFile, TakesThePlaceOfTheOldOneOnlyWhenItIsWhole) {
    const testkit::TemporaryFolder scratch;
    const std::string path = (scratch.path() / "file").string();
    writeFile(path, "the old text");
    {
        const FullDisk disk(100);
        EXPECT_THROW(writeFile(path, std::string(1000, 'x')), Fault);
    }
    EXPECT_EQ(testkit::fileText(path), "the old text");
    EXPECT_EQ(filesIn(scratch.path()), 1U) << "nothing is left beside";
    std::filesystem::permissions(path, std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    writeFile(path, "new");
    EXPECT_EQ(testkit::fileText(path), "new");
    EXPECT_EQ(std::filesystem::status(path).permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST(WriteFile, FollowsNoLink) {
    const testkit::TemporaryFolder scratch;
    const testkit::TemporaryFolder elsewhere;
    writeFile((elsewhere.path() / "file").string(), "not ours");
    const std::string path = (scratch.path() / "file").string();
    std::filesystem::create_symlink(elsewhere.path() / "file", path);
    writeFile(path, "ours");
    EXPECT_EQ(testkit::fileText(elsewhere.path() / "file"), "not ours");
    EXPECT_EQ(testkit::fileText(path), "ours");
}

TEST(WriteFile, LeavesADeviceWhereItIs) {
    const testkit::TemporaryFolder scratch;
    const std::string path = (scratch.path() / "pipe").string();
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    const int reader = open(path.c_str(), O_RDONLY | O_NONBLOCK);
    writeFile(path, "ours");
    char got[16];
    EXPECT_EQ(read(reader, got, sizeof got), 4);
    close(reader);
    EXPECT_TRUE(std::filesystem::is_fifo(path));
    const std::filesystem::path full = scratch.path() / "full";  // by a link, so that a fault here harms nothing
    std::filesystem::create_symlink("/dev/full", full);
    EXPECT_THROW(writeFile(full.string(), "ours"), Fault);
}

}  // namespace
}  // namespace orvent::platform

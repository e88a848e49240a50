#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "BrowserSessions/Chromium/ChromiumProfile.h"
#include "BrowserSessions/Chromium/SessionFiles.h"
#include "Tests/BrowserSessions/SessionLogWriter.h"
#include "Tests/Support/TemporaryFolder.h"

namespace BrowserSessions {
namespace {

// The beginning of 1970 in microseconds since the beginning of 1601.
constexpr std::int64_t beginning = 11'644'473'600'000'000;

// A user data folder that this process locked at the beginning of 1970.
class ChromiumRunTest : public testing::Test {
 protected:
  ChromiumRunTest() {
    const auto lock = folder_.path() / "SingletonLock";
    std::filesystem::create_symlink("host-" + std::to_string(getpid()), lock);
    const timespec times[] = {{.tv_sec = 0, .tv_nsec = 0}, {.tv_sec = 0, .tv_nsec = 0}};
    EXPECT_EQ(utimensat(AT_FDCWD, lock.c_str(), static_cast<const timespec*>(times), AT_SYMLINK_NOFOLLOW), 0);
  }

  [[nodiscard]] SessionFile log(std::int64_t begun) const {
    const std::string name = "Default/Sessions/Session_" + std::to_string(begun);
    return {folder_.write(name, SessionLogWriter().window(1).tab(1, 11, 0, "page").marker().bytes()), begun};
  }
  [[nodiscard]] ChromiumRun run() const { return {folder_.path(), getpid()}; }
  [[nodiscard]] bool isKnown() const { return chromiumProfileSession(folder_.path() / "Default", run()).has_value(); }

  TestSupport::TemporaryFolder folder_;
};

TEST_F(ChromiumRunTest, WritesLogsThatAreBegunAfterTheLock) {
  EXPECT_TRUE(run().mayHaveWritten(log(beginning)));
  EXPECT_TRUE(run().mayHaveWritten(log(beginning + 1)));
  EXPECT_TRUE(isKnown());
}

TEST_F(ChromiumRunTest, DoesNotWriteTheLogsThatWereThereBefore) {
  EXPECT_FALSE(run().mayHaveWritten(log(beginning - 1)));
  EXPECT_FALSE(isKnown());
}

TEST_F(ChromiumRunTest, WritesTheLogThatItHasOpenWhateverTheClockSays) {
  const SessionFile before = log(beginning - 1);
  const std::ofstream open(before.path, std::ios::app);
  EXPECT_TRUE(run().mayHaveWritten(before));
  EXPECT_TRUE(isKnown());
}

TEST_F(ChromiumRunTest, MayHaveWrittenAnyLogWhereNothingTellsWhenItWasBegun) {
  std::filesystem::remove(folder_.path() / "SingletonLock");
  EXPECT_TRUE(run().mayHaveWritten(log(1)));
}

TEST_F(ChromiumRunTest, HasNothingOpenWhereTheProcessIsGone) {
  const SessionFile before = log(beginning - 1);
  const std::ofstream open(before.path, std::ios::app);
  EXPECT_FALSE(ChromiumRun(folder_.path(), getpid(), folder_.path() / "nowhere").mayHaveWritten(before));
}

}  // namespace
}  // namespace BrowserSessions

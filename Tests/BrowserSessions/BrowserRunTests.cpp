#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "BrowserSessions/Chromium/BrowserRun.h"
#include "BrowserSessions/Chromium/ChromiumProfile.h"
#include "Tests/BrowserSessions/SessionLogWriter.h"
#include "Tests/Support/TemporaryFolder.h"

namespace BrowserSessions {
namespace {

// The first second of 1970, counted from the beginning of 1601.
constexpr std::int64_t beginning = 11'644'473'600'000'000;

/// A user data folder that this process has locked at the beginning of 1970.
class BrowserRunTest : public testing::Test {
 protected:
  BrowserRunTest() {
    const auto lock = folder_.path() / "SingletonLock";
    std::filesystem::create_symlink("host-" + std::to_string(getpid()), lock);
    const timespec times[] = {{.tv_sec = 0, .tv_nsec = 0}, {.tv_sec = 0, .tv_nsec = 0}};
    EXPECT_EQ(utimensat(AT_FDCWD, lock.c_str(), static_cast<const timespec*>(times), AT_SYMLINK_NOFOLLOW), 0);
  }

  [[nodiscard]] SessionFile log(std::int64_t begun) const {
    const std::string name = "Default/Sessions/Session_" + std::to_string(begun);
    return {folder_.write(name, SessionLogWriter().window(1).tab(1, 11, 0, "page").marker().bytes()), begun};
  }
  [[nodiscard]] BrowserRun run() const { return {folder_.path(), getpid()}; }
  [[nodiscard]] bool isKnown() const { return chromiumProfileSession(folder_.path() / "Default", run()).has_value(); }

  TestSupport::TemporaryFolder folder_;
};

TEST_F(BrowserRunTest, WritesLogsThatAreBegunBehindTheLock) {
  EXPECT_TRUE(run().mayHaveWritten(log(beginning)));
  EXPECT_TRUE(run().mayHaveWritten(log(beginning + 1)));
  EXPECT_TRUE(isKnown());
}

TEST_F(BrowserRunTest, DoesNotWriteTheLogsThatWereThereBefore) {
  EXPECT_FALSE(run().mayHaveWritten(log(beginning - 1)));
  EXPECT_FALSE(isKnown());
}

TEST_F(BrowserRunTest, WritesTheLogThatItHasOpenWhateverTheClockSays) {
  const SessionFile before = log(beginning - 1);
  const std::ofstream open(before.path, std::ios::app);
  EXPECT_TRUE(run().mayHaveWritten(before));
  EXPECT_TRUE(isKnown());
}

TEST_F(BrowserRunTest, MayHaveWrittenAnyLogWhereNothingTellsWhenItWasBegun) {
  std::filesystem::remove(folder_.path() / "SingletonLock");
  EXPECT_TRUE(run().mayHaveWritten(log(1)));
}

TEST_F(BrowserRunTest, HasNothingOpenWhereTheProcessIsGone) {
  const SessionFile before = log(beginning - 1);
  const std::ofstream open(before.path, std::ios::app);
  EXPECT_FALSE(BrowserRun(folder_.path(), getpid(), folder_.path() / "nowhere").mayHaveWritten(before));
}

}  // namespace
}  // namespace BrowserSessions

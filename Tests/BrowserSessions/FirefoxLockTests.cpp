#include <gtest/gtest.h>
#include <sys/stat.h>

#include "BrowserSessions/Firefox/RunningFirefox.h"
#include "Tests/BrowserSessions/LockedProfile.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

using BrowserSessions::FirefoxLock;
using BrowserSessions::firefoxLock;
using BrowserSessions::Testing::LockedProfile;

TEST(FirefoxLocks, IsHeldWhileTheProcessRuns) {
  const TestSupport::TemporaryFolder folder;
  {
    const LockedProfile running(folder.path());
    EXPECT_EQ(firefoxLock(folder.path()), FirefoxLock{running.holder()});
    EXPECT_EQ(firefoxLock(folder.path()), FirefoxLock{running.holder()}) << "asking does not take it away";
  }
  EXPECT_TRUE(std::filesystem::exists(folder.path() / ".parentlock"));
  EXPECT_EQ(firefoxLock(folder.path()), std::nullopt) << "the process was killed, and the file is still there";
}

TEST(FirefoxLocks, IsNotHeldWithoutAFile) {
  const TestSupport::TemporaryFolder folder;
  EXPECT_EQ(firefoxLock(folder.path()), std::nullopt);
  EXPECT_EQ(firefoxLock(folder.path() / "missing"), std::nullopt);
}

TEST(FirefoxLocks, IsNotHeldByWhatIsNoFile) {
  const TestSupport::TemporaryFolder folder;
  std::filesystem::create_directories(folder.path() / "a/.parentlock");
  EXPECT_EQ(firefoxLock(folder.path() / "a"), std::nullopt);
  std::filesystem::create_directories(folder.path() / "b");
  ASSERT_EQ(mkfifo((folder.path() / "b/.parentlock").c_str(), 0600), 0);
  EXPECT_EQ(firefoxLock(folder.path() / "b"), std::nullopt);
  folder.write("c", "a file");
  EXPECT_EQ(firefoxLock(folder.path() / "c"), std::nullopt);
}

}  // namespace

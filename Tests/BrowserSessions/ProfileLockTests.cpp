#include <gtest/gtest.h>
#include <sys/stat.h>

#include "BrowserSessions/Firefox/ProfileLock.h"
#include "Tests/BrowserSessions/LockedProfile.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

using BrowserSessions::ProfileLock;
using BrowserSessions::profileLock;
using BrowserSessions::Testing::LockedProfile;

TEST(ProfileLocks, IsHeldWhileTheProcessRuns) {
  const TestSupport::TemporaryFolder folder;
  {
    const LockedProfile running(folder.path());
    EXPECT_EQ(profileLock(folder.path()), ProfileLock{running.holder()});
    EXPECT_EQ(profileLock(folder.path()), ProfileLock{running.holder()}) << "asking does not take it away";
  }
  EXPECT_TRUE(std::filesystem::exists(folder.path() / ".parentlock"));
  EXPECT_EQ(profileLock(folder.path()), std::nullopt) << "the process was killed, and the file is still there";
}

TEST(ProfileLocks, IsNotHeldWithoutAFile) {
  const TestSupport::TemporaryFolder folder;
  EXPECT_EQ(profileLock(folder.path()), std::nullopt);
  EXPECT_EQ(profileLock(folder.path() / "missing"), std::nullopt);
}

TEST(ProfileLocks, IsNotHeldByWhatIsNoFile) {
  const TestSupport::TemporaryFolder folder;
  std::filesystem::create_directories(folder.path() / "a/.parentlock");
  EXPECT_EQ(profileLock(folder.path() / "a"), std::nullopt);
  std::filesystem::create_directories(folder.path() / "b");
  ASSERT_EQ(mkfifo((folder.path() / "b/.parentlock").c_str(), 0600), 0);
  EXPECT_EQ(profileLock(folder.path() / "b"), std::nullopt);
  folder.write("c", "a file");
  EXPECT_EQ(profileLock(folder.path() / "c"), std::nullopt);
}

}  // namespace

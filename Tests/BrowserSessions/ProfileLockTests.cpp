#include <gtest/gtest.h>
#include <sys/stat.h>

#include "BrowserSessions/ProfileLock.h"
#include "Tests/BrowserSessions/LockedProfile.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

using BrowserSessions::isLockedProfile;
using BrowserSessions::Testing::LockedProfile;

TEST(ProfileLock, IsHeldWhileTheProcessRuns) {
  const TestSupport::TemporaryFolder folder;
  {
    const LockedProfile running(folder.path());
    EXPECT_TRUE(isLockedProfile(folder.path()));
    EXPECT_TRUE(isLockedProfile(folder.path())) << "asking does not take it away";
  }
  EXPECT_TRUE(std::filesystem::exists(folder.path() / ".parentlock"));
  EXPECT_FALSE(isLockedProfile(folder.path())) << "the process was killed, and the file is still there";
}

TEST(ProfileLock, IsNotHeldWithoutAFile) {
  const TestSupport::TemporaryFolder folder;
  EXPECT_FALSE(isLockedProfile(folder.path()));
  EXPECT_FALSE(isLockedProfile(folder.path() / "missing"));
}

TEST(ProfileLock, IsNotHeldByWhatIsNoFile) {
  const TestSupport::TemporaryFolder folder;
  std::filesystem::create_directories(folder.path() / "a/.parentlock");
  EXPECT_FALSE(isLockedProfile(folder.path() / "a"));
  std::filesystem::create_directories(folder.path() / "b");
  ASSERT_EQ(mkfifo((folder.path() / "b/.parentlock").c_str(), 0600), 0);
  EXPECT_FALSE(isLockedProfile(folder.path() / "b"));
  folder.write("c", "a file");
  EXPECT_FALSE(isLockedProfile(folder.path() / "c"));
}

}  // namespace

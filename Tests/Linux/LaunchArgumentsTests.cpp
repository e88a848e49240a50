#include <cerrno>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <sys/mman.h>
#include <unistd.h>

#include "DesktopSupport/System/FileDescriptor.h"
#include "Linux/Launching/LaunchArguments.h"

using Linux::LaunchArguments;
using Linux::readLaunchURLs;
using Linux::writeLaunchURLs;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

TEST(LaunchArguments, TakeEverythingButOptionsForLaunchURLs) {
  const auto arguments = LaunchArguments::parse({"a:b", "", "c", "\xFF"});
  ASSERT_TRUE(arguments);
  EXPECT_THAT(arguments->launchURLs, ElementsAre("a:b", "", "c", "\xFF"));
  EXPECT_FALSE(arguments->help || arguments->version || arguments->activatedByBus);
}

TEST(LaunchArguments, KnowTheirOptions) {
  EXPECT_TRUE(LaunchArguments::parse({"--help"})->help);
  EXPECT_TRUE(LaunchArguments::parse({"--version"})->version);
  EXPECT_TRUE(LaunchArguments::parse({"--dbus-activated"})->activatedByBus);
  EXPECT_TRUE(LaunchArguments::parse({"--read-launch-urls"})->readsLaunchURLs);
  EXPECT_THAT(LaunchArguments::parse({})->launchURLs, IsEmpty());
  EXPECT_FALSE(LaunchArguments::parse({})->readsLaunchURLs);
}

TEST(LaunchArguments, TakeEverythingAfterTwoDashesForLaunchURLs) {
  EXPECT_THAT(LaunchArguments::parse({"a:b", "--", "--help", "--"})->launchURLs, ElementsAre("a:b", "--help", "--"));
}

TEST(LaunchArguments, FailOverAnUnknownOption) {
  EXPECT_EQ(LaunchArguments::parse({"--verbose"}).error(), "unknown option --verbose");
}

namespace {

class LaunchURLsTest : public testing::Test {
 protected:
  std::vector<std::string> readBack() {
    lseek(file.number(), 0, SEEK_SET);
    const auto urls = readLaunchURLs(file.number());
    EXPECT_TRUE(urls);
    return urls.value_or(std::vector<std::string>());
  }

  const DesktopSupport::FileDescriptor file{memfd_create("test", MFD_CLOEXEC)};
};

TEST_F(LaunchURLsTest, AreReadAsTheyWereWritten) {
  const std::vector<std::string> urls = {"a:b", "", "-x", "\xFF", "two\nlines", std::string(1 << 20, 'a')};
  ASSERT_TRUE(writeLaunchURLs(file.number(), urls));
  EXPECT_THAT(readBack(), ElementsAreArray(urls));
}

TEST_F(LaunchURLsTest, AreReadFromAnEmptyFile) {
  ASSERT_TRUE(writeLaunchURLs(file.number(), {}));
  EXPECT_THAT(readBack(), IsEmpty());
}

TEST_F(LaunchURLsTest, NeedNoNULAfterTheLast) {
  ASSERT_EQ(write(file.number(), "a:b\0c:d", 7), 7);
  EXPECT_THAT(readBack(), ElementsAre("a:b", "c:d"));
}

TEST_F(LaunchURLsTest, FailIfTheFileDoes) {
  EXPECT_EQ(readLaunchURLs(-1).error(), EBADF);
  EXPECT_EQ(writeLaunchURLs(-1, {"a:b"}).error(), EBADF);
}

TEST_F(LaunchURLsTest, FailOverMoreThan256Mebibytes) {
  constexpr off_t most = 256L << 20;
  ASSERT_EQ(ftruncate(file.number(), most + 1), 0);
  EXPECT_EQ(readLaunchURLs(file.number()).error(), EFBIG);
}

}  // namespace

#include <cerrno>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <sys/mman.h>
#include <unistd.h>

#include "DesktopSupport/System/FileDescriptor.h"
#include "Linux/Launching/LaunchURLStream.h"

using Linux::readLaunchURLs;
using Linux::writeLaunchURLs;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

namespace {

class LaunchURLStreamTest : public testing::Test {
 protected:
  std::vector<std::string> readBack() {
    lseek(file.number(), 0, SEEK_SET);
    const auto urls = readLaunchURLs(file.number());
    EXPECT_TRUE(urls);
    return urls.value_or(std::vector<std::string>());
  }

  const DesktopSupport::FileDescriptor file{memfd_create("test", MFD_CLOEXEC)};
};

TEST_F(LaunchURLStreamTest, BringsLaunchURLsAsTheyAre) {
  const std::vector<std::string> urls = {"a:b", "", "-x", "\xFF", "two\nlines", std::string(1 << 20, 'a')};
  ASSERT_TRUE(writeLaunchURLs(file.number(), urls));
  EXPECT_THAT(readBack(), ElementsAreArray(urls));
}

TEST_F(LaunchURLStreamTest, BringsNothingIfThereIsNothing) {
  ASSERT_TRUE(writeLaunchURLs(file.number(), {}));
  EXPECT_THAT(readBack(), IsEmpty());
}

TEST_F(LaunchURLStreamTest, NeedsNoEndAfterTheLast) {
  ASSERT_EQ(write(file.number(), "a:b\0c:d", 7), 7);
  EXPECT_THAT(readBack(), ElementsAre("a:b", "c:d"));
}

TEST_F(LaunchURLStreamTest, FailsIfTheFileDoes) {
  EXPECT_EQ(readLaunchURLs(-1).error(), EBADF);
  EXPECT_EQ(writeLaunchURLs(-1, {"a:b"}).error(), EBADF);
}

TEST_F(LaunchURLStreamTest, FailsOverMoreThanAnybodyMeans) {
  constexpr off_t most = 256L << 20;
  ASSERT_EQ(ftruncate(file.number(), most + 1), 0);
  EXPECT_EQ(readLaunchURLs(file.number()).error(), EFBIG);
}

}  // namespace

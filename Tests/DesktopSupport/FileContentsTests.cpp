#include <gtest/gtest.h>
#include <sys/stat.h>

#include "DesktopSupport/System/FileContents.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

using DesktopSupport::fileContents;

class FileContents : public testing::Test {
 protected:
  TestSupport::TemporaryFolder folder_;
};

TEST_F(FileContents, AreAllBytesOfTheFile) {
  const std::string bytes = std::string("a\0b\n", 4) + std::string(100000, 'x');
  EXPECT_EQ(fileContents(folder_.write("file", bytes), 1 << 20), bytes);
  EXPECT_EQ(fileContents(folder_.write("empty", ""), 10), "");
}

TEST_F(FileContents, AreReadUpToTheMaximumOnly) {
  EXPECT_EQ(fileContents(folder_.write("file", "12345"), 5), "12345");
  EXPECT_EQ(fileContents(folder_.write("file", "123456"), 5), std::nullopt);
}

TEST_F(FileContents, AreThoseOfFilesWithoutASizeToo) {
  EXPECT_TRUE(fileContents("/proc/self/cmdline", 1 << 20));
}

// The same holds for a file that grows while it is read.
TEST_F(FileContents, AreReadUpToTheMaximumOnlyWhateverTheFileSaysOfItsSize) {
  const auto size = fileContents("/proc/self/cmdline", 1 << 20).value().size();
  EXPECT_TRUE(fileContents("/proc/self/cmdline", size));
  EXPECT_EQ(fileContents("/proc/self/cmdline", size - 1), std::nullopt);
}

TEST_F(FileContents, AreAbsentWithoutAFile) {
  EXPECT_EQ(fileContents(folder_.path() / "missing", 10), std::nullopt);
  EXPECT_EQ(fileContents(folder_.path(), 10), std::nullopt) << "a folder";
}

TEST_F(FileContents, AreAbsentIfTheFileIsALinkToNothingOrToItself) {
  std::filesystem::create_symlink("nowhere", folder_.path() / "dangling");
  std::filesystem::create_symlink("loop", folder_.path() / "loop");
  EXPECT_EQ(fileContents(folder_.path() / "dangling", 10), std::nullopt);
  EXPECT_EQ(fileContents(folder_.path() / "loop", 10), std::nullopt);
}

TEST_F(FileContents, DoNotWaitForAPipe) {
  const auto pipe = folder_.path() / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(fileContents(pipe, 10), std::nullopt);
}

}  // namespace

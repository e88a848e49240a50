#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "UpdateCheck/ScratchFile.h"

namespace {

using UpdateCheck::MappedFile;
using UpdateCheck::ScratchFile;

std::string text(const MappedFile& file) {
  return {file.bytes().begin(), file.bytes().end()};
}

/// The paths of the scratch files that this process has open; " (deleted)" follows the path of one that has no name.
std::vector<std::string> openScratchFiles() {
  std::vector<std::string> paths;
  for (const auto& descriptor : std::filesystem::directory_iterator("/proc/self/fd")) {
    std::error_code error;  // if it is the descriptor that lists the others
    const std::string path = std::filesystem::read_symlink(descriptor, error);
    if (path.find("/update.") != std::string::npos)
      paths.push_back(path);
  }
  return paths;
}

TEST(ScratchFile, HasNoNameThatItCouldLeaveBehind) {
  const auto file = ScratchFile::create();
  ASSERT_TRUE(file);
  EXPECT_THAT(openScratchFiles(), testing::ElementsAre(testing::EndsWith(" (deleted)")));
}

TEST(ScratchFile, KeepsWhatIsAppended) {
  auto file = ScratchFile::create();
  ASSERT_TRUE(file);
  EXPECT_TRUE(file->append("one, "));
  EXPECT_TRUE(file->append(""));
  EXPECT_TRUE(file->append("two"));
  EXPECT_EQ(text(*file->contents()), "one, two");
}

TEST(ScratchFile, IsEmptyAtFirst) {
  EXPECT_TRUE(ScratchFile::create()->contents()->bytes().empty());
}

TEST(ScratchFile, KeepsItsContentsInMemoryWhenItIsGone) {
  const auto contents = [] {
    auto file = ScratchFile::create();
    EXPECT_TRUE(file->append("text"));
    return file->contents();
  }();
  EXPECT_EQ(text(*contents), "text");
}

TEST(MappedFile, CannotBeMadeOfWhatIsNoFile) {
  EXPECT_EQ(MappedFile::map(-1).error(), "Bad file descriptor");
}

}  // namespace

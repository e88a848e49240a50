#include <string>

#include <gtest/gtest.h>

#include "UpdateCheck/ScratchFile.h"

namespace {

using UpdateCheck::MappedFile;
using UpdateCheck::ScratchFile;

std::string text(const MappedFile& file) {
  return {file.bytes().begin(), file.bytes().end()};
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

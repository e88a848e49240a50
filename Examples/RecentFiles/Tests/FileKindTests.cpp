#include <gtest/gtest.h>

#include "FileKind.h"

using namespace RecentFiles;

namespace {

TEST(FileKind, FollowsFromTheMIMEType) {
  EXPECT_TRUE(contains(FileKind::images, "image/png"));
  EXPECT_TRUE(contains(FileKind::media, "audio/flac"));
  EXPECT_TRUE(contains(FileKind::media, "video/mp4"));
  EXPECT_TRUE(contains(FileKind::documents, "text/plain"));
  EXPECT_TRUE(contains(FileKind::documents, "application/vnd.oasis.opendocument.text"));
  EXPECT_TRUE(contains(FileKind::folders, "inode/directory"));
  EXPECT_FALSE(contains(FileKind::images, "text/plain"));
  EXPECT_FALSE(contains(FileKind::documents, "image/png"));
  EXPECT_FALSE(contains(FileKind::folders, ""));
}

TEST(FileKind, OfAllTakesWhatHasNoType) {
  EXPECT_TRUE(contains(FileKind::all, ""));
}

TEST(FileKind, HasANameForEach) {
  EXPECT_EQ(fileKindNames().size(), static_cast<std::size_t>(FileKind::folders) + 1);
}

TEST(FileKind, IsReadAsAllIfItsTextIsUnknown) {
  EXPECT_EQ(nlohmann::json("media").get<FileKind>(), FileKind::media);
  EXPECT_EQ(nlohmann::json("pictures").get<FileKind>(), FileKind::all);
  EXPECT_EQ(nlohmann::json(7).get<FileKind>(), FileKind::all);
}

}  // namespace

#include <chrono>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include "ScriptableApps/Finder/FolderSearch.h"
#include "ScriptableApps/Finder/Mounts.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

using namespace std::chrono_literals;
using ScriptableApps::FileMark;
using ScriptableApps::pathsWith;
using std::filesystem::path;
using testing::ElementsAre;

path make(const path& folder) {
  std::filesystem::create_directories(folder);
  return folder;
}

/// The mark of a folder on a file system without handles.
FileMark markOf(const path& folder) {
  struct stat status = {};
  if (stat(folder.c_str(), &status) != 0)
    throw std::runtime_error("no folder " + folder.string());
  return {.device = ScriptableApps::Mounts().deviceOf(folder), .inode = status.st_ino};
}

/// A folder with two others.
class FolderSearch : public testing::Test {
 protected:
  TestSupport::TemporaryFolder folder_;
  path first_ = make(folder_.path() / "first");
  path second_ = make(folder_.path() / "second");
};

TEST_F(FolderSearch, FindsFoldersWithoutHandles) {
  EXPECT_THAT(pathsWith({markOf(first_), markOf(second_)}, {.likely = {folder_.path()}}, 10s),
              ElementsAre(first_, second_));
}

TEST_F(FolderSearch, FindsNoFolderOfAnotherFileSystem) {
  FileMark elsewhere = markOf(first_);
  elsewhere.device = makedev(240, 240);
  EXPECT_THAT(pathsWith({elsewhere, markOf(second_)}, {.likely = {folder_.path()}}, 200ms),
              ElementsAre(std::nullopt, second_));
}

TEST_F(FolderSearch, FindsNoFolderWithAnotherHandle) {
  FileMark removed = markOf(first_);
  removed.handle = "1:00";
  EXPECT_THAT(pathsWith({removed, markOf(second_)}, {.likely = {folder_.path()}}, 200ms),
              ElementsAre(std::nullopt, second_));
}

TEST_F(FolderSearch, FindsAFolderUnderItsOwnPath) {
  EXPECT_THAT(pathsWith({markOf(folder_.path())}, {.lessLikely = {first_}}, 10s), ElementsAre(folder_.path()));
}

TEST_F(FolderSearch, LooksIntoLessLikelyFoldersAfterSomeLevels) {
  const path less = folder_.write("second/file", "contents");
  const auto foundWithName = [&](const path& name) {
    make(name.parent_path());
    std::filesystem::create_hard_link(less, name);
    const auto found = pathsWith({markOf(less)}, {.likely = {first_}, .lessLikely = {second_}}, 10s);
    std::filesystem::remove(name);
    return found;
  };
  EXPECT_THAT(foundWithName(first_ / "a/b/c/file"), ElementsAre(less));
  EXPECT_THAT(foundWithName(first_ / "a/file"), ElementsAre(first_ / "a/file"));
}

/// A file system with few files.
class SearchInMemory : public FolderSearch {
 protected:
  TestSupport::EnvironmentVariable place_{"TMPDIR", "/dev/shm"};
  TestSupport::TemporaryFolder small_;
};

TEST_F(SearchInMemory, EndsAfterTheLastFolder) {
  const path found = make(small_.path() / "a/b");
  FileMark removed = markOf(found);
  removed.handle = "1:00";
  EXPECT_THAT(pathsWith({markOf(found), removed}, {.likely = {small_.path()}}, 1min), ElementsAre(found, std::nullopt));
}

TEST_F(SearchInMemory, PassesOverFoldersThatCannotBeOpened) {
  const path before = std::filesystem::current_path();
  std::filesystem::current_path(small_.path());
  // A path has at most 4096 bytes.
  for (int depth = 0; depth < 18; ++depth)
    std::filesystem::current_path(make(std::string(250, 'x')));
  std::filesystem::current_path(before);
  FileMark removed = markOf(small_.path());
  removed.handle = "1:00";
  EXPECT_THAT(pathsWith({markOf(small_.path()), removed}, {.likely = {small_.path()}}, 1min),
              ElementsAre(small_.path(), std::nullopt));
}

}  // namespace

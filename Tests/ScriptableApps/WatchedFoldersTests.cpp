#include <chrono>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <sys/inotify.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include "DesktopSupport/System/FileDescriptor.h"
#include "ScriptableApps/Finder/Mounts.h"
#include "ScriptableApps/Finder/ShownFolders.h"
#include "ScriptableApps/Finder/WatchedFolders.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/DeadMount.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

using namespace std::chrono_literals;
using ScriptableApps::FileMark;
using ScriptableApps::foldersNamed;
using ScriptableApps::marksIn;
using ScriptableApps::Mounts;
using ScriptableApps::WatchedFolders;
using std::filesystem::path;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

TEST(WatchMarks, AreReadFromTheKernelsList) {
  EXPECT_THAT(
      marksIn(
          "pos:\t0\nflags:\t02004000\n"
          "inotify wd:2 ino:a741b4 sdev:fe00000 mask:fce ignored_mask:0 fhandle-bytes:8 fhandle-type:1 "
          "f_handle:b441a700ae5fb9e1\n"
          "inotify wd:1 ino:13 sdev:2d mask:fce ignored_mask:0\n"
          "inotify wd:3 ino:14 sdev:2d mask:fce ignored_mask:0 fhandle-bytes:4 fhandle-type:4d f_handle:01020304\n"),
      ElementsAre(FileMark{makedev(254, 0), 0xa741b4, "1:b441a700ae5fb9e1"}, FileMark{makedev(0, 45), 0x13, ""},
                  FileMark{makedev(0, 45), 0x14, "77:01020304"}));
}

TEST(WatchMarks, HaveNoHandleIfHalfOfItIsMissing) {
  EXPECT_THAT(marksIn("inotify wd:1 ino:13 sdev:2d fhandle-bytes:8 fhandle-type:1\n"
                      "inotify wd:2 ino:14 sdev:2d fhandle-bytes:8 f_handle:b441a700ae5fb9e1\n"),
              ElementsAre(FileMark{makedev(0, 45), 0x13, ""}, FileMark{makedev(0, 45), 0x14, ""}));
}

TEST(WatchMarks, AreAbsentInOtherLines) {
  for (const char* text : {"", "\n", "inotify", "inotify wd:1", "inotify wd:1 ino:13", "inotify wd:1 sdev:2d",
                           "inotify wd:1 ino:xyz sdev:2d", "inotify wd:1 ino:13 sdev:", "fanotify ino:13 sdev:2d",
                           "inotify wd:1 ino:fffffffffffffffff sdev:2d", "inotify wd:1 ino:-13 sdev:2d"})
    EXPECT_THAT(marksIn(text), IsEmpty()) << text;
}

TEST(MountPoints, AreReadFromTheKernelsList) {
  const TestSupport::TemporaryFolder folder;
  const Mounts mounts(folder.write("mountinfo",
                                   "22 27 0:21 / / rw - ext4 /dev/vda rw\n"
                                   "23 27 0:22 / /a\\040b rw - tmpfs tmpfs rw\n"
                                   "24 27 0:23 / /over rw - tmpfs tmpfs rw\n"
                                   "25 27 254:3 /sub /over rw - btrfs tmpfs rw\n"
                                   "rubbish\n26 27 x:y / /no rw\n28 27 1:3 / /end\\040 rw\n27 27 1:2 / /cut\\04"));
  EXPECT_EQ(mounts.deviceOf("/a b/c/d"), makedev(0, 22));
  EXPECT_EQ(mounts.deviceOf("/a"), makedev(0, 21));
  EXPECT_EQ(mounts.deviceOf("/over"), makedev(254, 3)) << "the later one covers the earlier one";
  EXPECT_EQ(mounts.deviceOf("/end "), makedev(1, 3));
  EXPECT_EQ(mounts.deviceOf("/no/x"), makedev(0, 21));
  EXPECT_EQ(mounts.deviceOf("/cut\\04"), makedev(1, 2));
  EXPECT_EQ(Mounts(folder.path() / "none").deviceOf("/a"), 0U);
}

/// The user's folders, and watches of this process.
class WatchedFoldersTest : public testing::Test {
 protected:
  path make(const path& name) const {
    std::filesystem::create_directories(home_.path() / name);
    return home_.path() / name;
  }

  void watch(const path& file) const {
    if (inotify_add_watch(watches_.number(), file.c_str(), IN_CREATE) < 0)
      throw std::runtime_error("cannot watch " + file.string());
  }

  TestSupport::TemporaryFolder home_;
  TestSupport::EnvironmentVariable data_{"XDG_DATA_HOME", home_.path().string()};
  TestSupport::EnvironmentVariable configuration_{"XDG_CONFIG_HOME", (home_.path() / ".config").string()};
  DesktopSupport::FileDescriptor watches_{inotify_init1(IN_CLOEXEC)};
};

TEST_F(WatchedFoldersTest, HaveTheirPaths) {
  const path first = make("a/b/c");
  const path second = make(".hidden/größer\n50%");
  make("other/c");
  watch(first);
  watch(second);
  watch(home_.path());
  watch(home_.write("file", "contents"));
  WatchedFolders watched(10s);
  watched.expect({1, getpid()});
  EXPECT_THAT(watched.of(getpid()).folders, UnorderedElementsAre(first, second, home_.path(), home_.path() / "file"));
  EXPECT_TRUE(watched.of(getpid()).areAll);
}

TEST_F(WatchedFoldersTest, AreThoseOfTheFolderAndNotOfItsName) {
  const path removed = make("removed");
  watch(make("kept"));
  watch(removed);
  std::filesystem::remove(removed);
  make("removed");
  WatchedFolders watched(10s);
  EXPECT_THAT(watched.of(getpid()).folders, ElementsAre(home_.path() / "kept"));
}

TEST_F(WatchedFoldersTest, AreNotAllIfAMountCoversOne) {
  watch(make("kept"));
  const path covered = make("covered");
  watch(covered);
  const TestSupport::DeadMount mount(covered);
  WatchedFolders watched(100ms);
  EXPECT_THAT(watched.of(getpid()).folders, ElementsAre(home_.path() / "kept"));
  EXPECT_FALSE(watched.of(getpid()).areAll);
}

TEST_F(WatchedFoldersTest, AreNoneOfAProcessThatWatchesNothing) {
  WatchedFolders watched(10s);
  EXPECT_THAT(watched.of(getpid()).folders, IsEmpty());
  EXPECT_FALSE(watched.of(getpid()).areAll);
  EXPECT_FALSE(watched.of(0).areAll);
}

TEST_F(WatchedFoldersTest, AreFoundBesideAMountThatDoesNotAnswer) {
  const TestSupport::DeadMount mount(make("a mount"));
  const path folder = make("b/c");
  watch(folder);
  home_.write(".config/gtk-3.0/bookmarks", "file://" + mount.path().string() + "/documents Documents\n");
  WatchedFolders watched(10s);
  EXPECT_THAT(watched.of(getpid()).folders, ElementsAre(folder));
}

TEST_F(WatchedFoldersTest, AreFoundFarFromHomeIfABookmarkNamesThem) {
  const TestSupport::TemporaryFolder elsewhere;
  path deep = elsewhere.path();
  for (int level = 0; level < 8; ++level)
    deep /= "level " + std::to_string(level);
  std::filesystem::create_directories(deep);
  home_.write(".config/gtk-3.0/bookmarks", "file:///no/such\nfile://" + elsewhere.path().string() +
                                               "/level%200/level%201/level%202/level%203 Name\nrubbish\n");
  watch(deep);
  WatchedFolders watched(10s);
  EXPECT_THAT(watched.of(getpid()).folders, ElementsAre(deep));
}

TEST_F(WatchedFoldersTest, AreOnceEachIfTheyAreWatchedTwice) {
  const DesktopSupport::FileDescriptor others(inotify_init1(IN_CLOEXEC));
  const path first = make("first");
  const path second = make("second");
  for (const path& folder : {first, second}) {
    watch(folder);
    ASSERT_GE(inotify_add_watch(others.number(), folder.c_str(), IN_CREATE), 0);
  }
  WatchedFolders watched(10s);
  EXPECT_THAT(watched.of(getpid()).folders, UnorderedElementsAre(first, second));
}

/// A watched file with several names, of which the search finds one.
class WatchedFileTest : public WatchedFoldersTest {
 protected:
  WatchedFileTest() { watch(file_); }

  /// Gives the file a further name in this folder.
  void link(const path& folder) const {
    std::filesystem::create_directories(folder);
    std::filesystem::create_hard_link(file_, folder / "file");
  }

  /// The name that is found. The first one is gone before the search.
  [[nodiscard]] path found() const {
    std::filesystem::remove(file_);
    WatchedFolders watched(10s);
    const auto& files = watched.of(getpid()).folders;
    return files.size() == 1 ? files.front() : path();
  }

  path file_ = home_.write("watched", "contents");
};

TEST_F(WatchedFileTest, IsFoundLevelByLevel) {
  for (int number = 0; number < 10; ++number)
    link(make(std::to_string(number) + "/a/b"));
  link(make("nearer/a"));
  EXPECT_EQ(found(), home_.path() / "nearer/a/file");
}

TEST_F(WatchedFileTest, IsFoundInHiddenFoldersLast) {
  link(make(".hidden"));
  link(make("a/b"));
  EXPECT_EQ(found(), home_.path() / "a/b/file");
}

TEST_F(WatchedFileTest, IsFoundFirstWhereTheUserGoes) {
  const TestSupport::TemporaryFolder elsewhere;
  link(make("a"));
  link(elsewhere.path());
  const std::string address = "file://" + elsewhere.path().string();
  for (const auto& [file, contents] : {std::pair(".config/gtk-3.0/bookmarks", address + " Name\n"),
                                       {"user-places.xbel", "<bookmark href=\"" + address + "\">"},
                                       {"recently-used.xbel", "<bookmark href='" + address + "' added=''>"}}) {
    const path list = home_.write(file, contents);
    EXPECT_EQ(found(), elsewhere.path() / "file") << file;
    std::filesystem::remove(list);
  }
  EXPECT_EQ(found(), home_.path() / "a/file");
}

TEST_F(WatchedFoldersTest, AreFoundFirstNearWhatTheProcessWasStartedFor) {
  const TestSupport::TemporaryFolder elsewhere;
  const path shown = elsewhere.write("a/file", "contents");
  std::filesystem::create_hard_link(shown, make("a/b/c") / "file");
  const TestSupport::ChildProcess tail({"tail", "--follow", shown});
  // The kernel tells nobody when the process begins to watch.
  std::vector<path> files;
  while (files.empty()) {
    WatchedFolders watched(10s);
    files = watched.of(tail.pid()).folders;
  }
  EXPECT_THAT(files, ElementsAre(shown));
}

TEST(NamedFolders, AreThoseWithTheName) {
  EXPECT_THAT(foldersNamed({.name = "a"}, {"/x/a", "/x/b", "/x"}), ElementsAre("/x/a"));
  EXPECT_THAT(foldersNamed({.name = "x"}, {"/x/a", "/x/b", "/x"}), ElementsAre("/x"));
  EXPECT_THAT(foldersNamed({.name = "a"}, {"/x/a", "/y/a"}), ElementsAre("/x/a", "/y/a"));
  EXPECT_THAT(foldersNamed({.name = "a"}, {"/x/ab", "/x/a/b"}), IsEmpty());
}

TEST(NamedFolders, AreTheInnerOnesIfThereAreSeveral) {
  EXPECT_THAT(foldersNamed({.name = "a"}, {"/a", "/a/a", "/a/a/a"}), ElementsAre("/a/a/a"));
  EXPECT_THAT(foldersNamed({.name = "a"}, {"/a", "/a/b", "/c/a"}), ElementsAre("/c/a"));
  EXPECT_THAT(foldersNamed({.name = "a"}, {"/a/b", "/a"}), ElementsAre("/a"));
}

}  // namespace

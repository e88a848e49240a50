#include <gtest/gtest.h>

#include "DesktopSupport/DesktopEntries/DesktopEntries.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

using DesktopSupport::DesktopEntries;
using DesktopSupport::DesktopEntry;

std::string entryCalled(std::string_view name, std::string_view more = "") {
  return "[Desktop Entry]\nType=Application\nName=" + std::string(name) + '\n' + std::string(more) + '\n';
}

class DesktopEntriesTest : public testing::Test {
 protected:
  // The name of the entry that is found. It is looked up twice: alone, and after all entries have been read.
  std::string find(std::string_view id) {
    DesktopEntries fresh(folders());
    const DesktopEntry* alone = fresh.find(id);
    DesktopEntries complete(folders());
    static_cast<void>(complete.index());
    const DesktopEntry* amongAll = complete.find(id);
    EXPECT_EQ(alone == nullptr, amongAll == nullptr);
    if (alone == nullptr || amongAll == nullptr)
      return "none";
    EXPECT_EQ(alone->name, amongAll->name);
    EXPECT_EQ(alone->id, id);
    return alone->name;
  }

  std::vector<std::filesystem::path> folders() {
    return {folder_.path() / "own", folder_.path() / "missing", folder_.path() / "system"};
  }

  TestSupport::TemporaryFolder folder_;
};

TEST_F(DesktopEntriesTest, AreFoundByTheirFileNames) {
  folder_.write("system/org.example.Files.desktop", entryCalled("Files"));
  EXPECT_EQ(find("org.example.Files"), "Files");
  EXPECT_EQ(find("org.example.files"), "none");
  EXPECT_EQ(find("Files"), "none");
}

TEST_F(DesktopEntriesTest, OfTheFirstFolderArePreferred) {
  folder_.write("own/a.desktop", entryCalled("Own"));
  folder_.write("system/a.desktop", entryCalled("System"));
  EXPECT_EQ(find("a"), "Own");
}

TEST_F(DesktopEntriesTest, InSubFoldersHaveTheirPathsAsIds) {
  folder_.write("system/kde/konsole.desktop", entryCalled("Konsole"));
  folder_.write("system/a-b/c/d-e.desktop", entryCalled("Deep"));
  EXPECT_EQ(find("kde-konsole"), "Konsole");
  EXPECT_EQ(find("a-b-c-d-e"), "Deep");
  EXPECT_EQ(find("konsole"), "none");
}

TEST_F(DesktopEntriesTest, ThatAreHiddenMaskThoseInLaterFolders) {
  folder_.write("own/a.desktop", "[Desktop Entry]\nHidden=true\n");
  folder_.write("system/a.desktop", entryCalled("System"));
  EXPECT_EQ(find("a"), "none");
}

TEST_F(DesktopEntriesTest, ThatAreBrokenMaskNothing) {
  folder_.write("own/a.desktop", "rubbish");
  folder_.write("system/a.desktop", entryCalled("System"));
  EXPECT_EQ(find("a"), "System");
}

TEST_F(DesktopEntriesTest, ThatAreFoldersOrDanglingLinksAreNone) {
  folder_.write("own/a.desktop/inner.desktop", entryCalled("Inner"));
  std::filesystem::create_symlink("nowhere", folder_.path() / "own/b.desktop");
  std::filesystem::create_symlink("c.desktop", folder_.path() / "own/c.desktop");
  for (const char* id : {"a", "b", "c"})
    EXPECT_EQ(find(id), "none") << id;
}

TEST_F(DesktopEntriesTest, MayBeReachedThroughALink) {
  folder_.write("elsewhere/real.desktop", entryCalled("Real"));
  std::filesystem::create_directories(folder_.path() / "own");
  std::filesystem::create_symlink(folder_.path() / "elsewhere/real.desktop", folder_.path() / "own/alias.desktop");
  EXPECT_EQ(find("alias"), "Real");
}

TEST_F(DesktopEntriesTest, AreAllReadInFoldersThatLinkToEachOther) {
  folder_.write("own/a.desktop", entryCalled("A"));
  folder_.write("own/x/b.desktop", entryCalled("B"));
  folder_.write("own/y/c.desktop", entryCalled("C"));
  for (const char* link : {"own/x/up", "own/y/up", "own/self"})
    std::filesystem::create_directory_symlink(folder_.path() / "own", folder_.path() / link);
  std::filesystem::create_directory_symlink("../y", folder_.path() / "own/x/y");
  std::filesystem::create_directory_symlink("../x", folder_.path() / "own/y/x");
  DesktopEntries entries(folders());
  static_cast<void>(entries.index());
  EXPECT_EQ(entries.filesRead(), 3U);
  EXPECT_EQ(find("a"), "A");
  EXPECT_EQ(find("x-b"), "B");
}

TEST_F(DesktopEntriesTest, DoNotLeaveTheirFolders) {
  folder_.write("outside.desktop", entryCalled("Outside"));
  folder_.write("own/a.desktop", entryCalled("A"));
  for (const char* id : {"../outside", "..-outside", "own/a", "/etc/passwd", ".-a", "", ".", "..", "-", "--"})
    EXPECT_EQ(find(id), "none") << id;
}

TEST_F(DesktopEntriesTest, AreNotSearchedForByImpossibleIds) {
  using namespace std::string_literals;
  folder_.write("own/a.desktop", entryCalled("A"));
  EXPECT_EQ(find("a\0"s), "none");
  EXPECT_EQ(find(std::string(70000, 'a')), "none");
  EXPECT_EQ(find(std::string(70000, '-')), "none");
  EXPECT_EQ(find("\xff"), "none");
}

TEST_F(DesktopEntriesTest, WithLineBreaksInTheirPathsAreLeftOut) {
  folder_.write("own/a\nb.desktop", entryCalled("A"));
  EXPECT_EQ(find("a\nb"), "none");
}

TEST_F(DesktopEntriesTest, AreReadOneByOne) {
  for (int number = 0; number < 50; ++number)
    folder_.write("own/" + std::to_string(number) + ".desktop", entryCalled("A"));
  DesktopEntries entries(folders());
  EXPECT_NE(entries.find("7"), nullptr);
  EXPECT_EQ(entries.filesRead(), 1U);
}

TEST_F(DesktopEntriesTest, AreReadOnceHoweverOftenTheyAreAskedFor) {
  folder_.write("own/a.desktop", entryCalled("A"));
  folder_.write("own/b.desktop", entryCalled("B"));
  DesktopEntries entries(folders());
  const DesktopEntry* first = entries.find("a");
  static_cast<void>(entries.index());
  static_cast<void>(entries.index());
  EXPECT_EQ(entries.find("a"), first);
  EXPECT_EQ(entries.find("c"), nullptr);
  EXPECT_EQ(entries.filesRead(), 2U);
}

TEST_F(DesktopEntriesTest, AreFoundByTheirFilesInsideTheFolders) {
  const auto file = folder_.write("system/kde/a.desktop", entryCalled("A"));
  DesktopEntries entries(folders());
  const DesktopEntry* entry = entries.findFile(file);
  ASSERT_NE(entry, nullptr);
  EXPECT_EQ(entry->id, "kde-a");
}

TEST_F(DesktopEntriesTest, AreFoundByTheirFilesOutsideOfTheFolders) {
  const auto file = folder_.write("image/a.desktop", entryCalled("Image"));
  DesktopEntries entries(folders());
  const DesktopEntry* entry = entries.findFile(file);
  ASSERT_NE(entry, nullptr);
  EXPECT_EQ(entry->id, "a");
  EXPECT_EQ(entry->file, file);
  EXPECT_EQ(entries.findFile(folder_.write("image/a.txt", entryCalled("Image"))), nullptr);
  EXPECT_EQ(entries.findFile(folder_.path() / "image/missing.desktop"), nullptr);
  EXPECT_EQ(entries.findFile(""), nullptr);
  EXPECT_EQ(entries.findFile(std::filesystem::relative(file)), nullptr) << "another program's folder may be another";
}

TEST_F(DesktopEntriesTest, WithoutAnyFolderAreNone) {
  DesktopEntries entries({});
  EXPECT_EQ(entries.find("a"), nullptr);
  EXPECT_EQ(entries.index().withStartupClass("a"), nullptr);
}

}  // namespace

#include <gtest/gtest.h>

#include "DesktopSupport/DesktopEntries/DesktopEntry.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

using DesktopSupport::DesktopEntry;
using TestSupport::EnvironmentVariable;

class DesktopEntryTest : public testing::Test {
 protected:
  std::optional<DesktopEntry> read(std::string_view contents) {
    return DesktopEntry::read(folder_.write("entry.desktop", contents), "entry");
  }

  TestSupport::TemporaryFolder folder_;
  EnvironmentVariable language_{"LANGUAGE", "C"};
};

TEST_F(DesktopEntryTest, HasWhatTheFileSays) {
  const auto entry = read(R"([Desktop Entry]
Type=Application
Name=Files
Exec=files --new-window %U
TryExec=/usr/bin/files
StartupWMClass=org.example.Files
)");
  ASSERT_TRUE(entry);
  EXPECT_EQ(entry->id, "entry");
  EXPECT_EQ(entry->file, folder_.path() / "entry.desktop");
  EXPECT_EQ(entry->name, "Files");
  EXPECT_EQ(entry->exec, "files --new-window %U");
  EXPECT_EQ(entry->tryExec, "/usr/bin/files");
  EXPECT_EQ(entry->startupClass, "org.example.Files");
  EXPECT_TRUE(entry->isShown);
  EXPECT_FALSE(entry->isHidden);
}

TEST_F(DesktopEntryTest, TellsItsFlatpakOrSnap) {
  const auto flatpak = read(R"([Desktop Entry]
Type=Application
Name=Files
X-Flatpak=org.example.Files
X-Flatpak-RenamedFrom=files.desktop;
)");
  ASSERT_TRUE(flatpak);
  EXPECT_EQ(flatpak->flatpak, "org.example.Files");
  EXPECT_EQ(flatpak->formerNames, "files.desktop;");
  EXPECT_EQ(flatpak->snap, "");
  const auto snap = read(R"([Desktop Entry]
X-SnapInstanceName=files_work
Type=Application
Name=Files
X-SnapAppName=viewer
)");
  ASSERT_TRUE(snap);
  EXPECT_EQ(snap->flatpak, "");
  EXPECT_EQ(snap->snap, "files_work");
  EXPECT_EQ(snap->snapApplication, "viewer");
}

TEST_F(DesktopEntryTest, NeedsATypeAndAName) {
  EXPECT_TRUE(read("[Desktop Entry]\nType=Application\nName=A\n"));
  EXPECT_FALSE(read("[Desktop Entry]\nName=A\n"));
  EXPECT_FALSE(read("[Desktop Entry]\nType=Link\nName=A\n"));
  EXPECT_FALSE(read("[Desktop Entry]\nType=Application\n"));
  EXPECT_FALSE(read("[Desktop Entry]\nType=Application\nName=\n"));
}

TEST_F(DesktopEntryTest, IsNoneIfTheFileIsRubbish) {
  EXPECT_FALSE(read(""));
  EXPECT_FALSE(read("Type=Application\nName=A\n"));
  EXPECT_FALSE(read("[Desktop Entry]\nType=Application\nName=A\nwhat is this\n"));
  EXPECT_FALSE(
      read(std::string("\x7f"
                       "ELF\x02\x01\0\0\0\xff\xfe",
                       11)));
  EXPECT_FALSE(read(std::string(3 << 20, '#')));
}

TEST_F(DesktopEntryTest, IsNoneWithoutAFile) {
  EXPECT_FALSE(DesktopEntry::read(folder_.path() / "missing.desktop", "missing"));
  EXPECT_FALSE(DesktopEntry::read(folder_.path(), "folder"));
}

TEST_F(DesktopEntryTest, FallsBackToTheUntranslatedName) {
  constexpr std::string_view contents = "[Desktop Entry]\nType=Application\nName=Files\nName[de]=Dateien\n";
  {
    const EnvironmentVariable german("LANGUAGE", "de");
    EXPECT_EQ(read(contents)->name, "Dateien");
  }
  const EnvironmentVariable dutch("LANGUAGE", "nl");
  EXPECT_EQ(read(contents)->name, "Files");
}

TEST_F(DesktopEntryTest, HasANameOfOneLine) {
  EXPECT_EQ(read("[Desktop Entry]\nType=Application\nName=Two\\nlines\n")->name, "Two lines");
}

TEST_F(DesktopEntryTest, HasANameOfAThousandCharactersAtMost) {
  EXPECT_EQ(read("[Desktop Entry]\nType=Application\nName=" + std::string(5000, 'x') + "\n")->name,
            std::string(999, 'x') + "…");
}

TEST_F(DesktopEntryTest, IsStartedByTheBusOnlyUnderANameThatTheBusAllows) {
  const auto file = folder_.write("any.desktop", "[Desktop Entry]\nType=Application\nName=A\nDBusActivatable=true\n");
  EXPECT_TRUE(DesktopEntry::read(file, "org.example.Files")->isBusActivatable);
  EXPECT_FALSE(DesktopEntry::read(file, "files")->isBusActivatable);
}

TEST_F(DesktopEntryTest, MayBeLeftOutOfMenus) {
  EXPECT_FALSE(read("[Desktop Entry]\nType=Application\nName=A\nNoDisplay=true\n")->isShown);
}

TEST_F(DesktopEntryTest, NeedsNothingElseToBeHidden) {
  const auto entry = read("[Desktop Entry]\nHidden=true\n");
  ASSERT_TRUE(entry);
  EXPECT_TRUE(entry->isHidden);
}

TEST_F(DesktopEntryTest, IsNotTakenFromItsActions) {
  const auto entry = read("[Desktop Entry]\nType=Application\nName=A\nExec=a\n[Desktop Action new]\nName=B\nExec=b\n");
  ASSERT_TRUE(entry);
  EXPECT_EQ(entry->name, "A");
  EXPECT_EQ(entry->exec, "a");
}

}  // namespace

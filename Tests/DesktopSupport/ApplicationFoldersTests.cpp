#include <algorithm>

#include <gtest/gtest.h>

#include "DesktopSupport/DesktopEntries/DesktopEntries.h"
#include "Tests/Support/EnvironmentVariable.h"

namespace {

using DesktopSupport::applicationFolders;
using TestSupport::EnvironmentVariable;

std::vector<std::string> foldersFor(const std::optional<std::string>& own, const std::optional<std::string>& system) {
  const EnvironmentVariable ownVariable("XDG_DATA_HOME", own);
  const EnvironmentVariable systemVariable("XDG_DATA_DIRS", system);
  std::vector<std::string> folders;
  for (const auto& folder : applicationFolders())
    folders.push_back(folder);
  return folders;
}

TEST(ApplicationFolders, AreTheUsersThenTheSystemsInTheirOrder) {
  const auto folders = foldersFor("/own", "/b:/a");
  ASSERT_GE(folders.size(), 3U);
  EXPECT_EQ(folders[0], "/own/applications");
  EXPECT_EQ(folders[1], "/b/applications");
  EXPECT_EQ(folders[2], "/a/applications");
}

TEST(ApplicationFolders, AreTheUsualOnesIfTheEnvironmentNamesNone) {
  for (const auto& nothing : {std::optional<std::string>(), std::optional<std::string>("")}) {
    const auto folders = foldersFor(nothing, nothing);
    ASSERT_GE(folders.size(), 3U);
    EXPECT_TRUE(folders[0].ends_with("/.local/share/applications"));
    EXPECT_EQ(folders[1], "/usr/local/share/applications");
    EXPECT_EQ(folders[2], "/usr/share/applications");
  }
}

TEST(ApplicationFolders, EndWithWhatFlatpakAndSnapExport) {
  const auto folders = foldersFor("/own", "/a");
  EXPECT_EQ(folders.back(), "/var/lib/snapd/desktop/applications");
  EXPECT_EQ(std::ranges::count(folders, "/own/flatpak/exports/share/applications"), 1);
}

TEST(ApplicationFolders, AreListedOnce) {
  const auto folders = foldersFor("/own", "/a:/a/:/own:/var/lib/snapd/desktop");
  EXPECT_EQ(std::ranges::count(folders, "/a/applications"), 1);
  EXPECT_EQ(std::ranges::count(folders, "/var/lib/snapd/desktop/applications"), 1);
  EXPECT_EQ(folders[2], "/var/lib/snapd/desktop/applications");
}

TEST(ApplicationFolders, LeaveOutRelativeAndEmptyOnes) {
  const auto folders = foldersFor("relative", "::also/relative:/a:");
  ASSERT_GE(folders.size(), 2U);
  EXPECT_TRUE(folders[0].ends_with("/.local/share/applications")) << "as if there were no XDG_DATA_HOME";
  EXPECT_EQ(folders[1], "/a/applications");
  EXPECT_TRUE(std::ranges::all_of(folders, [](const std::string& folder) { return folder.starts_with('/'); }));
}

}  // namespace

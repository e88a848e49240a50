#include <string>

#include <gtest/gtest.h>

#include "ScriptableApps/Finder/WindowTitles.h"

namespace {

using ScriptableApps::folderTitle;
using ScriptableApps::FolderTitle;
using ScriptableApps::mayName;

void expectName(std::string_view title, const std::string& name, std::string_view end = "") {
  const FolderTitle read = folderTitle(title, end);
  EXPECT_EQ(read.name, name) << title;
  EXPECT_FALSE(read.location) << title;
}

void expectLocation(std::string_view title, const std::string& location, std::string_view end = "") {
  EXPECT_EQ(folderTitle(title, end).location, location) << title;
}

TEST(FolderTitle, IsTheFoldersNameWithoutTheProgramsName) {
  expectName("Reports - Thunar", "Reports", " - Thunar");
  expectName("a - b — Dolphin", "a - b", " — Dolphin");
  expectName("Reports", "Reports", " - Thunar");
  expectName("Thunar - Thunar - Thunar", "Thunar - Thunar", " - Thunar");
  expectName("", "");
}

TEST(FolderTitle, HasTheLocationIfItIsAPath) {
  expectLocation("/home/user/Reports - Thunar", "file:///home/user/Reports", " - Thunar");
  expectLocation("/home/user/50% größer — Dolphin", "file:///home/user/50%25%20gr%C3%B6%C3%9Fer", " — Dolphin");
  expectLocation("/", "file:///");
  expectLocation("/two\nlines", "file:///two%0Alines");
  expectLocation("/a - /a", "file:///a%20-%20/a");
}

TEST(FolderTitle, HasTheLocationIfItIsAnAddress) {
  expectLocation("file:///two%0Alines - Thunar", "file:///two%0Alines", " - Thunar");
  expectLocation("sftp://example.com/home - Thunar", "sftp://example.com/home", " - Thunar");
}

TEST(FolderTitle, HasTheLocationIfItsPathFollowsTheName) {
  expectLocation("Reports - /home/user/Reports", "file:///home/user/Reports");
  expectLocation("a - b - /x/a - b", "file:///x/a%20-%20b");
  expectLocation("/ - /", "file:///");
  EXPECT_EQ(folderTitle("Reports - /home/user/Reports", "").name, "Reports");
}

TEST(FolderTitle, HasNoLocationIfTheTextOnlyLooksLikeOne) {
  for (const char* title :
       {"Reports - /home/user/Other", "Reports - home/user/Reports", "Reports /home/user/Reports", " - /", "- /a",
        "a:b", "a: //b", "://", "1://b", "~/Reports", "./Reports", "/bad\xff", "/bad\uFFFD", "bad\xff - /x/bad\xff"})
    EXPECT_FALSE(folderTitle(title, "").location) << title;
  EXPECT_FALSE(folderTitle(std::string_view("/a\0b", 4), "").location);
}

TEST(FolderTitle, NamesTheFolderAtALocation) {
  EXPECT_TRUE(mayName({.name = "a b"}, "file:///x/a%20b"));
  EXPECT_TRUE(mayName({.name = "a b"}, "file:///x/a%20b/"));
  EXPECT_FALSE(mayName({.name = "a b"}, "file:///x/a%20b/c"));
  EXPECT_FALSE(mayName({.name = "a"}, "sftp://example.com/a"));
  EXPECT_FALSE(mayName({.name = ""}, "rubbish"));
  EXPECT_TRUE(mayName({.location = "sftp://example.com/a"}, "sftp://example.com/a"));
  EXPECT_FALSE(mayName({.name = "a", .location = "file:///x/a"}, "file:///y/a"));
}

}  // namespace

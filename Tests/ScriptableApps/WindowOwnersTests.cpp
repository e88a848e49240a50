#include <gtest/gtest.h>

#include "ScriptableApps/SystemEvents/WindowOwners.h"

namespace {

using DesktopSupport::WindowList;
using ScriptableApps::WindowOwners;

DesktopSupport::WindowID ownerOf(const WindowList& list, std::size_t index) {
  return WindowOwners(list).ownerOf(list.windows[index].id);
}

TEST(WindowOwners, AreTheWindowsThemselvesWhereTheyBelongToNone) {
  EXPECT_EQ(ownerOf({{{.id = 1}, {.id = 2}}}, 1), 2U);
}

TEST(WindowOwners, AreThoseThatDialogsAreFor) {
  EXPECT_EQ(ownerOf({{{.id = 1}, {.id = 2, .transientFor = 1}}}, 1), 1U);
}

TEST(WindowOwners, AreFoundThroughDialogsOfDialogs) {
  EXPECT_EQ(ownerOf({{{.id = 3, .transientFor = 2}, {.id = 2, .transientFor = 1}, {.id = 1}}}, 0), 1U);
}

TEST(WindowOwners, AreTheWindowsThemselvesWhereThoseTheyBelongToAreNotListed) {
  EXPECT_EQ(ownerOf({{{.id = 2, .transientFor = 1}}}, 0), 2U);
  EXPECT_EQ(ownerOf({{{.id = 2, .transientFor = 0}}}, 0), 2U);
}

TEST(WindowOwners, AreTheWindowsThemselvesWhereTheyBelongToEachOther) {
  EXPECT_EQ(ownerOf({{{.id = 1, .transientFor = 1}}}, 0), 1U);
  const WindowList pair{{{.id = 1, .transientFor = 2}, {.id = 2, .transientFor = 1}}};
  EXPECT_EQ(ownerOf(pair, 0), 1U);
  EXPECT_EQ(ownerOf(pair, 1), 2U);
}

TEST(WindowOwners, OfWindowsThatAreNotListedAreThoseThemselves) {
  EXPECT_EQ(WindowOwners({}).ownerOf(7), 7U);
}

}  // namespace

#include <gtest/gtest.h>

#include "AppleScript/Values/Dictionary.h"
#include "ScriptableApps/ScriptableApplications.h"

namespace {

using ScriptableApps::ScriptableApplications;

TEST(ScriptableApplications, AreFoundByTheirNames) {
  ScriptableApplications applications;
  for (const char* name : {"System Events", "Finder", "Deskloom"}) {
    ASSERT_NE(applications.find(name), nullptr) << name;
    EXPECT_EQ(applications.find(name)->name(), name);
  }
}

TEST(ScriptableApplications, AreFoundWithoutRegardToCase) {
  ScriptableApplications applications;
  EXPECT_EQ(applications.find("system EVENTS"), applications.find("System Events"));
}

TEST(ScriptableApplications, AreNoOthers) {
  ScriptableApplications applications;
  for (const char* name : {"", "System", "System Events ", "Terminal", "\xff"})
    EXPECT_EQ(applications.find(name), nullptr) << name;
}

TEST(ScriptableApplications, StayWhereTheyAre) {
  ScriptableApplications applications;
  EXPECT_EQ(applications.find("Deskloom"), applications.find("Deskloom"));
}

TEST(ScriptableApplications, HaveDictionariesThatNeedNoDesktop) {
  ScriptableApplications applications;
  EXPECT_EQ(applications.find("System Events")->dictionary().commands.size(), 0U);
  EXPECT_EQ(applications.find("Finder")->dictionary().commands.size(), 0U);
  EXPECT_EQ(applications.find("Deskloom")->dictionary().commands.size(), 8U);
}

}  // namespace

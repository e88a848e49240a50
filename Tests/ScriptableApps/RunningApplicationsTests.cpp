#include <string>

#include <gtest/gtest.h>
#include <pthread.h>

#include "Tests/ScriptableApps/RunningApplicationsTest.h"

namespace {

using TestSupport::RunningApplicationsTest;

TEST_F(RunningApplicationsTest, AreNoneWithoutWindows) {
  EXPECT_TRUE(applications().empty());
}

TEST_F(RunningApplicationsTest, AreListedOnceHoweverManyWindowsTheyHave) {
  addEntry("term", "Terminal", "StartupWMClass=XTerm");
  addWindow("XTerm", 7);
  addWindow("XTerm", 8);
  addProgram(9, "xclock");
  addProgram(10, "xclock");
  addWindow("Clock", 9);
  addWindow("Clock", 10);
  EXPECT_EQ(names(), (Names{"Terminal", "xclock"}));
}

// A file is looked for in a process of its own.
TEST_F(RunningApplicationsTest, AreLookedForOnceHoweverManyWindowsTheyHave) {
  static int forks = 0;
  ASSERT_EQ(pthread_atfork([] { ++forks; }, nullptr, nullptr), 0);
  for (int window = 0; window < 3; ++window) {
    addApplication("First");
    addWindow("Gone", 7);
  }
  addProcess(7, "/no/such/program");
  forks = 0;
  EXPECT_EQ(names(), Names{"First"});
  EXPECT_EQ(forks, 2);
}

TEST_F(RunningApplicationsTest, AreToldApartByTheClassesOfTheirWindowsBeforeTheirFiles) {
  const std::string program = addProgram(7, "suite");
  const std::string other = addProgram(8, "other");
  addWindow("Writer", 7);
  addWindow("Painter", 7);
  addWindow("Writer", 8);
  addWindow("Painter", 7);
  EXPECT_EQ(names(), (Names{"Writer", "Painter", "other"})) << "the program's name would be that of two";
  EXPECT_EQ(files(), (Names{program, program, other}));
}

TEST_F(RunningApplicationsTest, AreNotToldApartByAWindowWithoutAClass) {
  addProgram(7, "suite");
  addWindow("", 7);
  addWindow("Writer", 7);
  addWindow("Painter", 7);
  addWindow("", 7);
  EXPECT_EQ(names(), (Names{"Writer", "Painter"}));
}

TEST_F(RunningApplicationsTest, AreInTheOrderOfTheirFirstWindows) {
  for (const char* name : {"b", "a", "b", "c", "a"})
    addApplication(name);
  EXPECT_EQ(names(), (Names{"b", "a", "c"}));
}

TEST_F(RunningApplicationsTest, AreNotPartsOfTheDesktop) {
  addApplication("panel").isOrdinary = false;
  addApplication("tool");
  EXPECT_EQ(names(), Names{"tool"});
}

TEST_F(RunningApplicationsTest, AreListedForTheOrdinaryOnesOfTheirWindows) {
  addApplication("tool").isOrdinary = false;
  addApplication("tool");
  EXPECT_EQ(names(), Names{"tool"});
}

TEST_F(RunningApplicationsTest, AreNotListedForTheDialogsOfOthers) {
  addApplication("editor");
  addApplication("file-chooser").transientFor = 1;
  EXPECT_EQ(names(), Names{"editor"});
}

TEST_F(RunningApplicationsTest, AreNotListedForTheDialogsOfPanels) {
  addApplication("panel").isOrdinary = false;
  addApplication("preferences").transientFor = 1;
  EXPECT_TRUE(names().empty());
}

TEST_F(RunningApplicationsTest, AreNotListedForTheDialogsOfTheirDialogs) {
  addApplication("dialog-of-dialog").transientFor = 2;
  addApplication("dialog").transientFor = 3;
  addApplication("editor");
  EXPECT_EQ(names(), Names{"editor"});
}

TEST_F(RunningApplicationsTest, AreListedForDialogsOfWindowsThatAreNotListed) {
  addApplication("dialog").transientFor = 99;
  addApplication("other").transientFor = 0;
  EXPECT_EQ(names(), (Names{"dialog", "other"}));
}

TEST_F(RunningApplicationsTest, AreListedForWindowsThatNameEachOtherAsTheirParents) {
  addApplication("a").transientFor = 2;
  addApplication("b").transientFor = 1;
  addApplication("c").transientFor = 3;
  EXPECT_EQ(names(), (Names{"a", "b", "c"}));
}

TEST_F(RunningApplicationsTest, AreFrontmostWithOneOfTheirWindows) {
  addApplication("a");
  addApplication("b");
  addApplication("b");
  list_.active = 3;
  EXPECT_FALSE(applications()[0].isFrontmost);
  EXPECT_TRUE(applications()[1].isFrontmost);
}

TEST_F(RunningApplicationsTest, AreFrontmostWithOneOfTheirDialogs) {
  addApplication("a");
  addApplication("dialog").transientFor = 1;
  list_.active = 2;
  EXPECT_TRUE(applications()[0].isFrontmost);
}

TEST_F(RunningApplicationsTest, AreNotFrontmostIfAPanelIsActive) {
  addApplication("a");
  addApplication("panel").isOrdinary = false;
  list_.active = 2;
  EXPECT_FALSE(applications()[0].isFrontmost);
}

TEST_F(RunningApplicationsTest, AreNotFrontmostIfAWindowThatIsNotListedIsActive) {
  addApplication("a");
  list_.active = 7;
  EXPECT_FALSE(applications()[0].isFrontmost);
}

TEST_F(RunningApplicationsTest, AreVisibleUnlessAllTheirWindowsAreMinimised) {
  addApplication("a").isHidden = true;
  addApplication("b").isHidden = true;
  addApplication("b");
  EXPECT_FALSE(applications()[0].isVisible);
  EXPECT_TRUE(applications()[1].isVisible);
}

}  // namespace

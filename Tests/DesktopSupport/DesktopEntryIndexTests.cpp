#include <deque>

#include <gtest/gtest.h>

#include "DesktopSupport/DesktopEntries/DesktopEntry.h"

namespace {

using DesktopSupport::CommandLine;
using DesktopSupport::DesktopEntry;
using DesktopSupport::DesktopEntryIndex;

class DesktopEntryIndexTest : public testing::Test {
 protected:
  DesktopEntry& add(const char* id) { return entries_.emplace_back(DesktopEntry{.id = id}); }

  [[nodiscard]] DesktopEntryIndex index() const {
    std::vector<const DesktopEntry*> pointers;
    for (const DesktopEntry& entry : entries_)
      pointers.push_back(&entry);
    return DesktopEntryIndex(pointers);
  }

  static std::string idOf(const DesktopEntry* entry) { return entry == nullptr ? "none" : entry->id; }

  [[nodiscard]] std::string starting(const std::vector<std::string>& arguments) const {
    return idOf(index().starting(*CommandLine::from(arguments)));
  }

  std::deque<DesktopEntry> entries_;
};

TEST_F(DesktopEntryIndexTest, FindsAnEntryByTheClassOfItsWindows) {
  add("debian-xterm").startupClass = "XTerm";
  EXPECT_EQ(idOf(index().withStartupClass("XTerm")), "debian-xterm");
  EXPECT_EQ(idOf(index().withStartupClass("xterm")), "none");
  EXPECT_EQ(idOf(index().withStartupClassIgnoringCase("xterm")), "debian-xterm");
  EXPECT_EQ(idOf(index().withStartupClassIgnoringCase("term")), "none");
}

TEST_F(DesktopEntryIndexTest, FindsNothingByAnEmptyClass) {
  add("a");
  EXPECT_EQ(idOf(index().withStartupClass("")), "none");
  EXPECT_EQ(idOf(index().withStartupClassIgnoringCase("")), "none");
}

TEST_F(DesktopEntryIndexTest, PrefersTheEntryCalledLikeTheClass) {
  for (const char* id : {"a", "code", "z"})
    add(id).startupClass = "code";
  entries_[1].isShown = false;
  EXPECT_EQ(idOf(index().withStartupClass("code")), "code");
}

TEST_F(DesktopEntryIndexTest, PrefersAnEntryThatMenusShow) {
  for (const char* id : {"a", "b", "c"})
    add(id).startupClass = "code";
  EXPECT_EQ(idOf(index().withStartupClass("code")), "a");
  entries_[0].isShown = false;
  EXPECT_EQ(idOf(index().withStartupClass("code")), "b");
}

TEST_F(DesktopEntryIndexTest, FindsAnEntryByItsProgram) {
  add("a").exec = "/usr/bin/tool %F";
  EXPECT_EQ(starting({"/opt/tool"}), "a");
  EXPECT_EQ(starting({"tool", "--fast", "file"}), "a");
  EXPECT_EQ(starting({"tools"}), "none");
}

TEST_F(DesktopEntryIndexTest, FindsAnEntryByTheProgramItTries) {
  add("a").exec = "start-tool";
  entries_[0].tryExec = "/usr/bin/tool";
  EXPECT_EQ(starting({"tool"}), "a");
  EXPECT_EQ(starting({"start-tool"}), "a");
}

TEST_F(DesktopEntryIndexTest, FindsTheEntryWithMostOfTheArguments) {
  add("office").exec = "office %U";
  add("writer").exec = "office --writer %U";
  EXPECT_EQ(starting({"office", "--writer", "file"}), "writer");
  EXPECT_EQ(starting({"office", "--calc"}), "office");
}

TEST_F(DesktopEntryIndexTest, DoesNotTakeAProgramForWhatItRuns) {
  add("mutt").exec = "xterm -e mutt";
  EXPECT_EQ(starting({"xterm"}), "none");
  EXPECT_EQ(starting({"xterm", "-e", "mutt"}), "mutt");
}

TEST_F(DesktopEntryIndexTest, DoesNotTakeTheProgramTriedForAnotherCommandOfTheSame) {
  add("preferences").exec = "editor --preferences";
  entries_[0].tryExec = "editor";
  EXPECT_EQ(starting({"editor"}), "none");
}

TEST_F(DesktopEntryIndexTest, PassesOverCommandsThatCannotBeRead) {
  add("a").exec = "tool \"unbalanced";
  add("b").exec = "";
  add("c").exec = "sh -c 'tool'";
  EXPECT_EQ(starting({"tool"}), "none");
}

TEST_F(DesktopEntryIndexTest, FindsTheEntriesOfAFlatpakOrASnap) {
  for (const char* id : {"a", "b", "c"})
    add(id);
  entries_[0].flatpak = entries_[2].flatpak = "org.example.App";
  entries_[1].snap = "org.example.App";
  EXPECT_EQ(index().ofFlatpak("org.example.App"), (std::vector<const DesktopEntry*>{&entries_[0], &entries_[2]}));
  EXPECT_EQ(index().ofSnap("org.example.App"), std::vector<const DesktopEntry*>{&entries_[1]});
}

TEST_F(DesktopEntryIndexTest, PrefersAnotherNameInTheOrderOfItsReliability) {
  for (const char* id : {"Name", "a", "b", "name_name"})
    add(id);
  entries_[1].formerNames = "other.desktop;name.desktop;";
  entries_[2].flatpak = "name";
  EXPECT_EQ(idOf(index().alsoCalled("name")), "Name");
  entries_.pop_front();
  EXPECT_EQ(idOf(index().alsoCalled("name")), "b");
  entries_[1].flatpak = "";
  EXPECT_EQ(idOf(index().alsoCalled("name")), "name_name");
  entries_.pop_back();
  EXPECT_EQ(idOf(index().alsoCalled("name")), "a");
  EXPECT_EQ(idOf(index().alsoCalled("")), "none");
}

TEST_F(DesktopEntryIndexTest, FindsTheEntriesThatRunAFile) {
  add("a").exec = "/opt/tool %U";
  add("b").exec = "\"/opt/../opt//tool\" --new";
  add("c").exec = "/opt/other/tool";
  add("d").exec = "start /opt/tool";
  EXPECT_EQ(index().running("/opt/tool"), (std::vector<const DesktopEntry*>{&entries_[0], &entries_[1]}));
  entries_[3].tryExec = "/opt/tool";
  EXPECT_EQ(index().running("/opt/tool").size(), 3U);
}

}  // namespace

#include <algorithm>

#include <gtest/gtest.h>

#include "ScriptableApps/RunningApplications.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

using DesktopSupport::DesktopEntries;
using DesktopSupport::Window;
using DesktopSupport::WindowList;
using ScriptableApps::RunningApplication;
using TestSupport::EnvironmentVariable;

// A made-up desktop: entries in one folder, processes in another, windows in a list.
class RunningApplicationsTest : public testing::Test {
 protected:
  void addEntry(const std::string& id, const std::string& name, std::string_view more = "") {
    folder_.write("applications/" + id + ".desktop",
                  "[Desktop Entry]\nType=Application\nName=" + name + '\n' + std::string(more) + '\n');
  }

  void addProcess(pid_t pid, const std::string& program) {
    const auto process = folder_.path() / "proc" / std::to_string(pid);
    std::filesystem::create_directories(process);
    std::filesystem::create_symlink(program, process / "exe");
  }

  Window& addWindow(const std::string& windowClass, std::optional<pid_t> pid = std::nullopt) {
    const auto id = static_cast<DesktopSupport::WindowId>(list_.windows.size() + 1);
    return list_.windows.emplace_back(
        Window{.id = id, .instance = windowClass, .windowClass = windowClass, .pid = pid});
  }

  std::vector<RunningApplication> applications() {
    DesktopEntries entries({folder_.path() / "applications"});
    return ScriptableApps::runningApplications(list_, entries, folder_.path() / "proc");
  }

  std::vector<std::string> names() {
    std::vector<std::string> names;
    for (const RunningApplication& application : applications())
      names.push_back(application.name);
    return names;
  }

  using Names = std::vector<std::string>;
  TestSupport::TemporaryFolder folder_;
  EnvironmentVariable path_{"PATH", folder_.path() / "bin"};
  EnvironmentVariable language_{"LANGUAGE", "C"};
  WindowList list_;
};

TEST_F(RunningApplicationsTest, AreNoneWithoutWindows) {
  EXPECT_TRUE(applications().empty());
}

TEST_F(RunningApplicationsTest, AreCalledLikeTheirEntries) {
  addEntry("org.example.Files", "Files", "Name[de]=Dateien\nStartupWMClass=files");
  addProcess(7, "/usr/bin/files-bin");
  addWindow("files", 7);
  const auto found = applications();
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].name, "Files");
  EXPECT_EQ(found[0].file, folder_.path() / "applications/org.example.Files.desktop");
  EXPECT_EQ(found[0].entryId, "org.example.Files");
  EXPECT_EQ(found[0].pid, 7);
  const EnvironmentVariable german("LANGUAGE", "de");
  EXPECT_EQ(names(), Names{"Dateien"});
}

TEST_F(RunningApplicationsTest, AreCalledLikeTheirProgramsWithoutAnEntry) {
  addProcess(7, "/usr/bin/xclock");
  addWindow("XClock", 7);
  const auto found = applications();
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].name, "xclock");
  EXPECT_EQ(found[0].file, "/usr/bin/xclock");
  EXPECT_EQ(found[0].entryId, std::nullopt);
}

TEST_F(RunningApplicationsTest, AreCalledLikeTheirWindowsWhereTheProcessIsGone) {
  addWindow("XClock", 7);
  const auto found = applications();
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].name, "XClock");
  EXPECT_EQ(found[0].file, "XClock");
  EXPECT_EQ(found[0].pid, 7);
}

TEST_F(RunningApplicationsTest, HaveTheProgramOfTheirNameWhereTheProcessIsUnknown) {
  const auto program = folder_.write("bin/xclock", "");
  std::filesystem::permissions(program, std::filesystem::perms::owner_all);
  addWindow("XClock").instance = "xclock";
  EXPECT_EQ(applications().at(0).file, program);
  EXPECT_EQ(applications().at(0).name, "XClock");
  EXPECT_EQ(applications().at(0).pid, std::nullopt);
}

TEST_F(RunningApplicationsTest, DoNotHaveAFileThatTheirWindowsPointTo) {
  folder_.write("bin/xclock", "");
  addWindow("../bin/xclock");
  EXPECT_EQ(applications().at(0).file, "../bin/xclock") << "as it is, and nothing looked up";
}

TEST_F(RunningApplicationsTest, AreListedOnceHoweverManyWindowsTheyHave) {
  addEntry("term", "Terminal", "StartupWMClass=XTerm");
  addWindow("XTerm", 7);
  addWindow("XTerm", 8);
  addProcess(9, "/usr/bin/xclock");
  addProcess(10, "/usr/bin/xclock");
  addWindow("Clock", 9);
  addWindow("Other", 10);
  addWindow("Gone", 11);
  addWindow("Gone", 12);
  EXPECT_EQ(names(), (Names{"Terminal", "xclock", "Gone"}));
}

TEST_F(RunningApplicationsTest, AreInTheOrderOfTheirFirstWindows) {
  for (const char* name : {"b", "a", "b", "c", "a"})
    addWindow(name);
  EXPECT_EQ(names(), (Names{"b", "a", "c"}));
}

TEST_F(RunningApplicationsTest, AreNotPartsOfTheDesktop) {
  addWindow("panel").isOrdinary = false;
  addWindow("tool");
  EXPECT_EQ(names(), Names{"tool"});
}

TEST_F(RunningApplicationsTest, AreListedForTheOrdinaryOnesOfTheirWindows) {
  addWindow("tool").isOrdinary = false;
  addWindow("tool");
  EXPECT_EQ(names(), Names{"tool"});
}

TEST_F(RunningApplicationsTest, AreNotListedForTheDialogsOfOthers) {
  addWindow("editor");
  addWindow("file-chooser").transientFor = 1;
  EXPECT_EQ(names(), Names{"editor"});
}

TEST_F(RunningApplicationsTest, AreNotListedForTheDialogsOfPanels) {
  addWindow("panel").isOrdinary = false;
  addWindow("preferences").transientFor = 1;
  EXPECT_TRUE(names().empty());
}

TEST_F(RunningApplicationsTest, AreListedForDialogsOfWindowsThatAreNotListed) {
  addWindow("dialog").transientFor = 99;
  EXPECT_EQ(names(), Names{"dialog"});
}

TEST_F(RunningApplicationsTest, AreFrontmostWithOneOfTheirWindows) {
  addWindow("a");
  addWindow("b");
  addWindow("b");
  list_.active = 3;
  EXPECT_FALSE(applications()[0].isFrontmost);
  EXPECT_TRUE(applications()[1].isFrontmost);
}

TEST_F(RunningApplicationsTest, AreFrontmostWithOneOfTheirDialogs) {
  addWindow("a");
  addWindow("dialog").transientFor = 1;
  list_.active = 2;
  EXPECT_TRUE(applications()[0].isFrontmost);
}

TEST_F(RunningApplicationsTest, AreNotFrontmostWhereAPanelIsActive) {
  addWindow("a");
  addWindow("panel").isOrdinary = false;
  list_.active = 2;
  EXPECT_FALSE(applications()[0].isFrontmost);
}

TEST_F(RunningApplicationsTest, AreVisibleUnlessAllTheirWindowsAreMinimised) {
  addWindow("a").isHidden = true;
  addWindow("b").isHidden = true;
  addWindow("b");
  EXPECT_FALSE(applications()[0].isVisible);
  EXPECT_TRUE(applications()[1].isVisible);
}

TEST_F(RunningApplicationsTest, HaveNamesAndFilesOfOneLine) {
  addProcess(7, "/opt/two\nlines");
  addWindow("Two\r\nLines", 7);
  addProcess(8, "/opt/bad\xff");
  addWindow("", 8);
  addWindow("Line\u2028Separator\x01");
  for (const RunningApplication& application : applications())
    for (const std::string& text : {application.name, application.file}) {
      EXPECT_TRUE(text.find_first_of("\r\n\x01") == std::string::npos) << text;
      EXPECT_FALSE(text.empty());
    }
  EXPECT_EQ(names(), (Names{"two lines", "bad\uFFFD", "Line Separator"}));
}

TEST_F(RunningApplicationsTest, PassLongNamesWhole) {
  const std::string name(64 * 1024, 'n');
  addWindow(name);
  EXPECT_EQ(names(), Names{name});
}

TEST_F(RunningApplicationsTest, AreKnownByWhicheverNameTheirWindowsHave) {
  addWindow("").instance = "instance";
  addWindow("").applicationId = "org.example.Missing";
  EXPECT_EQ(names(), (Names{"instance", "org.example.Missing"}));
}

TEST_F(RunningApplicationsTest, AreLeftOutWhereNothingTellsThemApart) {
  addWindow("");
  addWindow("\n\x01");
  EXPECT_EQ(applications().size(), 1U) << "a line break is a name of one space";
  list_.windows.pop_back();
  EXPECT_TRUE(applications().empty());
}

TEST_F(RunningApplicationsTest, OnOtherMachinesAreNotTheTunnelThatShowsThem) {
  addProcess(7, "/usr/bin/ssh");
  addWindow("XClock", 7);
  addWindow("XEyes", 7);
  EXPECT_EQ(names(), (Names{"XClock", "XEyes"}));
  EXPECT_EQ(applications()[0].pid, std::nullopt);
}

}  // namespace

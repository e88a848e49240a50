#pragma once

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <sys/types.h>

#include "DesktopSupport/Screen/Screen.h"
#include "ScriptableApps/SystemEvents/SystemEvents.h"
#include "Tests/Support/Compositor.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/TemporaryFolder.h"
#include "Tests/Support/WindowPrograms.h"

// What System Events tells on KWin, to a program that KWin permits to see the windows and to one that it does not.
// Included by a test program for each.

namespace {

using DesktopSupport::Window;
using ScriptableApps::RunningApplication;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;
using TestSupport::startGTKWindows;
using TestSupport::WindowSystem;

constexpr const char* editor = "com.example.Editor";

class SystemEventsOnKWin : public testing::Test {
 protected:
  SystemEventsOnKWin() {
    // KWin 5 tells the classes of X11 windows in lower case.
    folder_.write("applications/com.example.Editor.desktop",
                  "[Desktop Entry]\nType=Application\nName=Editor\nExec=editor\nStartupWMClass=com.example.Editor\n");
  }

  ~SystemEventsOnKWin() override {
    programs.clear();
    EXPECT_TRUE(compositor->waitForNoWindows());
  }

  static std::vector<RunningApplication> processes() {
    ScriptableApps::SystemEvents systemEvents;
    const auto root = systemEvents.open();
    if (!root) {
      ADD_FAILURE() << root.error().message;
      return {};
    }
    std::vector<RunningApplication> processes;
    for (const auto& process : static_cast<const ScriptableApps::SystemEventsRoot&>(**root).processes())
      processes.push_back(process.application());
    return processes;
  }

  /// The desktop entries of all processes, or the names of those without one.
  static std::vector<std::string> entries() {
    std::vector<std::string> entries;
    for (const RunningApplication& process : processes())
      entries.push_back(process.entryID.value_or(process.name));
    return entries;
  }

  /// The process with this desktop entry.
  static RunningApplication process(const std::string& entry) {
    for (RunningApplication& process : processes())
      if (process.entryID == entry)
        return std::move(process);
    ADD_FAILURE() << entry << " is not listed";
    return {};
  }

  /// The desktop entries of the processes that are frontmost.
  static std::vector<std::string> frontmost() {
    std::vector<std::string> entries;
    for (const RunningApplication& process : processes())
      if (process.isFrontmost)
        entries.push_back(process.entryID.value_or(process.name));
    return entries;
  }

  static std::vector<std::string> titles() {
    const auto list = DesktopSupport::readWindows();
    if (!list)
      return {list.error().message};
    std::vector<std::string> titles;
    std::ranges::transform(list->windows, std::back_inserter(titles), &Window::title);
    return titles;
  }

  /// Starts a program with GTK, one with Qt and one under Xwayland, in this order, and waits for their windows.
  void startThree() {
    programs.push_back(startGTKWindows(editor, {"One"}));
    programs.push_back(TestSupport::startFeatherPad());
    ASSERT_TRUE(compositor->awaitWindow("Untitled"));
    programs.push_back(TestSupport::startXTerm("a terminal"));
    ASSERT_TRUE(compositor->awaitWindow("a terminal"));
  }

  const std::unique_ptr<TestSupport::Compositor> compositor = TestSupport::Compositor::running();
  std::vector<TestSupport::ChildProcess> programs;

 private:
  TestSupport::TemporaryFolder folder_;
  TestSupport::EnvironmentVariable dataHome_{"XDG_DATA_HOME", folder_.path()};
  TestSupport::EnvironmentVariable language_{"LANGUAGE", "C"};
};

TEST_F(SystemEventsOnKWin, ListsNothingOnAnEmptyDesktop) {
  EXPECT_THAT(entries(), IsEmpty());
}

TEST_F(SystemEventsOnKWin, ListsEachProgramOnceByItsDesktopEntry) {
  startThree();
  programs.push_back(startGTKWindows(editor, {"Two", "Three"}));
  EXPECT_THAT(entries(), UnorderedElementsAre(editor, "featherpad", "debian-xterm"));
}

TEST_F(SystemEventsOnKWin, SaysWhatIsVisible) {
  for (const auto windowSystem : {WindowSystem::wayland, WindowSystem::x11}) {
    programs.push_back(startGTKWindows(editor, {"One", "Two"}, windowSystem));
    ASSERT_TRUE(compositor->minimize("One"));
    EXPECT_TRUE(process(editor).isVisible);
    ASSERT_TRUE(compositor->minimize("Two"));
    EXPECT_FALSE(process(editor).isVisible);
    programs.clear();
    ASSERT_TRUE(compositor->waitForNoWindows());
  }
}

TEST_F(SystemEventsOnKWin, LeavesOutAProgramThatHasEnded) {
  programs.push_back(startGTKWindows(editor, {"One"}));
  programs.push_back(TestSupport::startFeatherPad());
  ASSERT_TRUE(compositor->awaitWindow("Untitled"));
  for (int round = 0; round < 20; ++round) {
    // Its windows are about to disappear, now or while the list is read.
    {
      const auto other = startGTKWindows("com.example.Other", {"1", "2", "3", "4"});
    }
    EXPECT_THAT(entries(), testing::IsSupersetOf({editor, "featherpad"}));
  }
  EXPECT_TRUE(compositor->waitUntil([] { return entries() == std::vector<std::string>({editor, "featherpad"}); }));
}

TEST_F(SystemEventsOnKWin, TakesAnyTitle) {
  const std::string hostile = "a line\nand \x01 another\t\u202e \u2028 <2>\u200E";
  programs.push_back(startGTKWindows(editor, {hostile, hostile, "", std::string(4000, 'x')}));
  programs.push_back(startGTKWindows(editor, {hostile, "", std::string(100'000, 'x')}, WindowSystem::x11));
  EXPECT_THAT(entries(), ElementsAre(editor));
  EXPECT_EQ(titles().size(), 7U);
}

TEST_F(SystemEventsOnKWin, KeepsEqualTitles) {
  programs.push_back(startGTKWindows(editor, {"Home", "Home"}));
  programs.push_back(startGTKWindows(editor, {"Home"}, WindowSystem::x11));
  EXPECT_THAT(titles(), ElementsAre("Home", "Home", "Home"));
}

}  // namespace

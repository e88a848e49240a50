#pragma once

#include <algorithm>
#include <atomic>
#include <iterator>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "DesktopSupport/Screen/Screen.h"
#include "Tests/ScriptableApps/OpenProcesses.h"
#include "Tests/Support/Compositor.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/TemporaryFolder.h"
#include "Tests/Support/WindowPrograms.h"

// What System Events promises on every compositor that tells about its windows. Included by a test program for each.

namespace {

using ScriptableApps::RunningApplication;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;
using TestSupport::ChildProcess;
using TestSupport::startGTKWindows;
using TestSupport::WindowSystem;

/// The desktop of a compositor, with the test's own desktop entries.
class SystemEventsOnWaylandTest : public testing::Test {
 protected:
  SystemEventsOnWaylandTest() {
    // KWin 5 tells the classes of X11 windows in lower case.
    for (const std::string name : {"Native", "Xwayland"})
      folder_.write("applications/com.example." + name + ".desktop",
                    "[Desktop Entry]\nType=Application\nName=" + name + "\nStartupWMClass=com.example." + name + '\n');
  }

  ~SystemEventsOnWaylandTest() override {
    programs.clear();
    EXPECT_TRUE(compositor->waitForNoWindows());
  }

  void start(const std::string& name, const std::vector<std::string>& titles,
             WindowSystem windowSystem = WindowSystem::wayland) {
    const std::size_t before = compositor->windows().size();
    programs.push_back(startGTKWindows("com.example." + name, titles, windowSystem));
    // A compositor learns of a window under X when its program has shown it.
    EXPECT_TRUE(compositor->waitUntil([&] { return compositor->windows().size() == before + titles.size(); }));
  }

  // Waits until the compositor shows windows with these titles.
  void await(const std::vector<std::string>& titles) {
    for (const std::string& title : titles)
      EXPECT_TRUE(compositor->awaitWindow(title)) << title;
  }

  // The only application that is listed.
  static RunningApplication onlyProcess() {
    const auto processes = openProcesses();
    EXPECT_EQ(processes.size(), 1U);
    return processes.empty() ? RunningApplication() : processes.front();
  }

  // The names of the applications in front.
  static std::vector<std::string> frontmost() {
    std::vector<std::string> names;
    for (const RunningApplication& process : openProcesses())
      if (process.isFrontmost)
        names.push_back(process.name);
    return names;
  }

  // Brings windows of both kinds to the front.
  void expectThatTheFrontIsKnown() {
    start("Native", {"one", "two"});
    start("Xwayland", {"three"}, WindowSystem::x11);
    for (const char* title : {"one", "three", "two"}) {
      EXPECT_TRUE(compositor->focus(title));
      EXPECT_THAT(frontmost(), ElementsAre(title == std::string("three") ? "Xwayland" : "Native"));
    }
  }

  // Minimises the windows of programs of both kinds.
  void expectThatVisibilityIsKnown() {
    for (const auto& [name, windowSystem] :
         {std::pair("Native", WindowSystem::wayland), {"Xwayland", WindowSystem::x11}}) {
      start(name, {"one", "two"}, windowSystem);
      EXPECT_TRUE(compositor->minimize("one"));
      EXPECT_TRUE(onlyProcess().isVisible) << name;
      EXPECT_TRUE(compositor->minimize("two"));
      EXPECT_FALSE(onlyProcess().isVisible) << name;
      programs.clear();
      EXPECT_TRUE(compositor->waitForNoWindows());
    }
  }

  const std::unique_ptr<TestSupport::Compositor> compositor = TestSupport::Compositor::running();
  std::vector<ChildProcess> programs;

 private:
  TestSupport::TemporaryFolder folder_;
  TestSupport::EnvironmentVariable dataHome_{"XDG_DATA_HOME", folder_.path()};
  TestSupport::EnvironmentVariable language_{"LANGUAGE", "C"};
};

TEST_F(SystemEventsOnWaylandTest, ListsNothingOnAnEmptyDesktop) {
  EXPECT_THAT(openProcesses(), IsEmpty());
}

TEST_F(SystemEventsOnWaylandTest, ListsEachProgramOnceByItsDesktopEntry) {
  start("Native", {"GTK"});
  start("Xwayland", {"GTK under X"}, WindowSystem::x11);
  programs.push_back(TestSupport::startXTerm("a terminal"));
  programs.push_back(TestSupport::startFeatherPad());
  await({"a terminal", "Untitled"});
  const auto processes = openProcesses();
  std::vector<std::string> entries;
  for (const RunningApplication& process : processes) {
    entries.push_back(process.entryID.value_or("none"));
    EXPECT_TRUE(process.file.ends_with(entries.back() + ".desktop")) << process.file;
    EXPECT_TRUE(process.isVisible) << process.name;
  }
  EXPECT_THAT(entries,
              UnorderedElementsAre("com.example.Native", "com.example.Xwayland", "debian-xterm", "featherpad"));
}

TEST_F(SystemEventsOnWaylandTest, ListsAProgramWithSeveralWindowsOnce) {
  start("Native", {"one", "two"});
  start("Xwayland", {"three", "four"}, WindowSystem::x11);
  EXPECT_THAT(namesOfOpenProcesses(), UnorderedElementsAre("Native", "Xwayland"));
}

TEST_F(SystemEventsOnWaylandTest, KnowsTheProcessesOfProgramsUnderX) {
  start("Xwayland", {"one", "two"}, WindowSystem::x11);
  EXPECT_EQ(onlyProcess().pid, programs.front().pid());
}

TEST_F(SystemEventsOnWaylandTest, ForgetsAProgramWhoseWindowsAreClosed) {
  start("Native", {"one", "two"});
  EXPECT_TRUE(compositor->close("one"));
  EXPECT_THAT(namesOfOpenProcesses(), ElementsAre("Native"));
  EXPECT_TRUE(compositor->close("two"));
  EXPECT_THAT(openProcesses(), IsEmpty());
}

TEST_F(SystemEventsOnWaylandTest, TakesWindowsWithEqualTitles) {
  start("Native", {"Home", "Home"});
  start("Xwayland", {"Home"}, WindowSystem::x11);
  EXPECT_THAT(namesOfOpenProcesses(), UnorderedElementsAre("Native", "Xwayland"));
  // KWin shows the second one as "Home <2>".
  const auto list = DesktopSupport::readWindows();
  ASSERT_TRUE(list) << list.error().message;
  std::vector<std::string> titles;
  std::ranges::transform(list->windows, std::back_inserter(titles), &DesktopSupport::Window::title);
  EXPECT_THAT(titles, ElementsAre("Home", "Home", "Home"));
}

TEST_F(SystemEventsOnWaylandTest, MakesATitleOfAnyKindHarmless) {
  const std::string longTitle(3000, 'x');
  start("Native", {"", "line\nbreak\ttab", "\x1b[31m \u202e reversed", longTitle});
  start("Xwayland", {"", "line\nbreak\ttab", "\x1b[31m \u202e reversed", longTitle}, WindowSystem::x11);
  EXPECT_THAT(namesOfOpenProcesses(), UnorderedElementsAre("Native", "Xwayland"));
}

TEST_F(SystemEventsOnWaylandTest, ReadsWhileWindowsComeAndGo) {
  start("Native", {"stays"});
  std::atomic<bool> isOver = false;
  std::thread visitor([&] {
    for (int round = 0; round < 10; ++round)
      for (const auto windowSystem : {WindowSystem::wayland, WindowSystem::x11})
        startGTKWindows("com.example.Xwayland", {"comes", "and goes"}, windowSystem);
    isOver = true;
  });
  while (!isOver)
    EXPECT_THAT(namesOfOpenProcesses(), testing::Contains("Native"));
  visitor.join();
}

}  // namespace

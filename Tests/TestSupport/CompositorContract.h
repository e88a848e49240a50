#pragma once

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "Tests/Support/Compositor.h"
#include "Tests/Support/WindowPrograms.h"

// What every compositor that tests ask promises. Included by a test program for each.

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;
using TestSupport::ChildProcess;
using TestSupport::Compositor;
using TestSupport::CompositorWindow;
using TestSupport::startGTKWindows;
using TestSupport::WindowSystem;

class CompositorTest : public testing::Test {
 protected:
  ~CompositorTest() override {
    programs.clear();
    EXPECT_TRUE(compositor->waitForNoWindows());
  }

  [[nodiscard]] std::vector<std::string> titles() const {
    std::vector<std::string> titles;
    for (const CompositorWindow& window : compositor->windows())
      titles.push_back(window.title);
    return titles;
  }

  const std::unique_ptr<Compositor> compositor = Compositor::running();
  std::vector<ChildProcess> programs;
};

TEST_F(CompositorTest, ListsNothingOnAnEmptyDesktop) {
  EXPECT_THAT(compositor->windows(), IsEmpty());
}

TEST_F(CompositorTest, ListsWindowsWithGTKWithQtAndUnderX) {
  programs.push_back(startGTKWindows("com.example.Native", {"GTK"}));
  programs.push_back(startGTKWindows("com.example.x", {"GTK under X"}, WindowSystem::x11));
  programs.push_back(TestSupport::startXTerm("a terminal"));
  programs.push_back(TestSupport::startFeatherPad());
  const auto applicationOf = [&](const char* title) {
    const auto window = compositor->awaitWindow(title);
    return window ? window->application : "no window";
  };
  EXPECT_EQ(applicationOf("GTK"), "com.example.Native");
  EXPECT_EQ(applicationOf("GTK under X"), "com.example.x");
  EXPECT_THAT(applicationOf("a terminal"), testing::StrCaseEq("XTerm"));
  EXPECT_EQ(applicationOf("Untitled"), "featherpad");
  EXPECT_EQ(compositor->windows().size(), 4U);
}

TEST_F(CompositorTest, HasAWindowAsSoonAsItsProgramSaysSo) {
  programs.push_back(startGTKWindows("com.example.A", {"1", "2", "ü '\"</b>"}));
  EXPECT_THAT(titles(), UnorderedElementsAre("1", "2", "ü '\"</b>"));
  for (const CompositorWindow& window : compositor->windows())
    EXPECT_EQ(window.process, programs[0].pid());
}

TEST_F(CompositorTest, FocusesMinimizesAndClosesWindows) {
  for (const auto windowSystem : {WindowSystem::wayland, WindowSystem::x11}) {
    programs.push_back(startGTKWindows("com.example.A", {"1", "2"}, windowSystem));
    ASSERT_TRUE(compositor->waitUntil([this] { return compositor->windows().size() == 2; }));
    for (const auto* title : {"1", "2", "1"})
      EXPECT_TRUE(compositor->focus(title));
    EXPECT_TRUE(compositor->minimize("1"));
    EXPECT_FALSE(compositor->awaitWindow("2")->isMinimized);
    EXPECT_TRUE(compositor->focus("1"));
    EXPECT_TRUE(compositor->close("1"));
    EXPECT_THAT(titles(), ElementsAre("2"));
    EXPECT_TRUE(compositor->close("2"));
    EXPECT_EQ(programs.back().wait(), 0);
  }
}

}  // namespace

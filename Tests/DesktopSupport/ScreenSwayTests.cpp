#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "DesktopSupport/Processes/ProcessInfo.h"
#include "DesktopSupport/Screen/Screen.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/Compositor.h"
#include "Tests/Support/WindowPrograms.h"

namespace {

// Whether the X server of this desktop runs.
bool isXwaylandRunning() {
  const char* const desktop = std::getenv("DESKLOOM_DESKTOP_ID");
  for (const auto& folder : std::filesystem::directory_iterator("/proc")) {
    std::string name;
    std::getline(std::ifstream(folder.path() / "comm"), name);
    if (name != "Xwayland")
      continue;
    const DesktopSupport::ProcessInfo process(std::stoi(folder.path().filename()));
    if (process.environment("DESKLOOM_DESKTOP_ID") == desktop)
      return true;
  }
  return false;
}

// sway starts its X server for the first program that connects to it.
TEST(ScreenOnSway, IsReadWithoutStartingTheXServer) {
  const auto compositor = TestSupport::Compositor::running();
  {
    const auto native = TestSupport::startGTKWindows("com.example.Native", {"native"});
    const auto list = DesktopSupport::readWindows();
    ASSERT_TRUE(list) << list.error().message;
    EXPECT_EQ(list->windows.size(), 1U);
    EXPECT_FALSE(isXwaylandRunning());

    const auto x11 = TestSupport::startGTKWindows("com.example.Xwayland", {"x11"}, TestSupport::WindowSystem::x11);
    EXPECT_TRUE(isXwaylandRunning());
  }
  EXPECT_TRUE(compositor->waitForNoWindows());
}

}  // namespace

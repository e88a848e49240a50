// Which window titles are used to read a browser.

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "ScriptableApps/Browsers/Safari.h"
#include "Tests/Support/TestDesktop.h"
#include "Tests/Support/TestWindow.h"

namespace {

using ScriptableApps::RunningBrowser;
using TestSupport::TestWindow;

/// Finds one browser, and records the titles that are passed to read it.
class OneBrowser : public ScriptableApps::Safari {
 public:
  OneBrowser(std::optional<pid_t> process, std::vector<std::string>& titles) : process_(process), titles_(titles) {}

 private:
  [[nodiscard]] std::vector<RunningBrowser> runningBrowsers(const std::vector<pid_t>& /*processes*/) const override {
    return {{process_, [this](const std::vector<std::string>& titles) {
               titles_ = titles;
               return BrowserSessions::SessionReading();
             }}};
  }

  std::optional<pid_t> process_;
  std::vector<std::string>& titles_;
};

std::vector<std::string> titlesFor(std::optional<pid_t> process) {
  std::vector<std::string> titles;
  EXPECT_TRUE(OneBrowser(process, titles).open());
  return titles;
}

TEST(BrowserApplication, IsReadWithTheTitlesOfTheWindowsOfItsProcess) {
  const TestSupport::TestDesktop desktop;
  TestWindow first(desktop);
  TestWindow second(desktop);
  TestWindow dialog(desktop);
  TestWindow dock(desktop);
  ASSERT_TRUE(first.setText("_NET_WM_NAME", "First", "UTF8_STRING").show());
  ASSERT_TRUE(second.setText("_NET_WM_NAME", "Zweites für sich", "UTF8_STRING").show());
  dialog.setNumber("WM_TRANSIENT_FOR", first.id(), "WINDOW").setText("_NET_WM_NAME", "Dialog", "UTF8_STRING");
  ASSERT_TRUE(dialog.show());
  dock.setAtom("_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DOCK").setText("_NET_WM_NAME", "Dock", "UTF8_STRING");
  ASSERT_TRUE(dock.show());
  desktop.askWindowManager(first.id(), "_NET_ACTIVE_WINDOW");
  EXPECT_TRUE(desktop.waitUntil([&] { return desktop.activeWindow() == first.id(); }));
  EXPECT_THAT(titlesFor(getpid()), testing::ElementsAre("First", "Zweites für sich"));
  EXPECT_THAT(titlesFor(getppid()), testing::IsEmpty());
  EXPECT_THAT(titlesFor(std::nullopt), testing::IsEmpty());
}

}  // namespace

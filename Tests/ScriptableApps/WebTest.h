#pragma once

#include <algorithm>
#include <cstdlib>
#include <deque>
#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "BrowserSessions/GNOMEWeb/RunningGNOMEWeb.h"
#include "Tests/ScriptableApps/Scripts.h"
#include "Tests/Support/BusNames.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/FolderChanges.h"
#include "Tests/Support/PageServer.h"
#include "Tests/Support/ScreenReader.h"
#include "Tests/Support/TestDesktop.h"
#include "Tests/Support/TestInput.h"

namespace TestSupport {

/// A GNOME Web with an empty profile, used as by a user: from the command line, with the keyboard and the mouse.
class WebTest : public testing::Test {
 protected:
  /// The title of a window's current page, followed by those of all its tabs.
  using Titles = std::vector<std::string>;

  void TearDown() override {
    processes_.clear();
    EXPECT_TRUE(desktop_.waitForNoWindows());
    awaitNoOwner(BrowserSessions::gnomeWebBusName);
    std::filesystem::remove_all(profile_);
  }

  /// Starts it. If one is running, the new one only passes its options on. The pages' sandbox is off, since it does not
  /// work everywhere, and the support for screen readers is on.
  ChildProcess& start(std::vector<std::string> options) {
    options.insert(options.begin(), {"sh", "-c", "exec \"$@\" >/dev/null 2>&1", "sh", "epiphany-browser"});
    return processes_.emplace_back(
        options,
        ChildProcess::Options{
            .environment = {{"WEBKIT_DISABLE_SANDBOX_THIS_IS_DANGEROUS", "1"}, {"NO_AT_BRIDGE", ""}, {"GTK_A11Y", ""}},
            .hasHelpers = true});
  }

  /// Waits until a screen reader finds these titles, and then until a script lists the windows, the one in front first.
  void expectWindows(const std::string& windows, const std::vector<Titles>& titles) {
    const auto areOnScreen = [&] {
      return testing::Value(titlesOnScreen(), testing::UnorderedElementsAreArray(titles));
    };
    EXPECT_TRUE(reader_.waitUntil(areOnScreen)) << testing::PrintToString(titlesOnScreen());
    // Saving opens and closes a tab, which leaves the last one shown.
    if (titles.front().front() == titles.front().back()) {
      haveAllSaved();
      EXPECT_TRUE(reader_.waitUntil(areOnScreen)) << testing::PrintToString(titlesOnScreen());
    }
    EXPECT_TRUE(changes_.waitUntil([&] { return textOfScript(listSafariWindows) == windows; }))
        << textOfScript(listSafariWindows);
  }

  /// The same for windows with these pages. Each list of names begins with that of the current page.
  void expectPages(const std::vector<std::vector<std::string>>& windows) {
    std::string text;
    std::vector<Titles> titles;
    for (const std::vector<std::string>& names : windows) {
      Titles& all = titles.emplace_back();
      for (const std::string& name : names) {
        text += (all.empty() ? "a window that shows Page " + name : "Page " + name + '\n' + url(name)) + '\n';
        all.push_back("Page " + name);
      }
    }
    expectWindows(text, titles);
  }

  /// Clicks at the page in the window with this title, after waiting for the window.
  void clickAtPage(const std::string& title) const {
    const auto place = desktop_.geometry(readyWindow(title));
    ASSERT_TRUE(place);
    input_.click(place->x + place->width / 2, place->y + place->height / 2);
  }

  [[nodiscard]] std::string url(const std::string& name) const { return server_.url(name); }

  const std::filesystem::path profile_ = std::filesystem::path(std::getenv("XDG_DATA_HOME")) / "epiphany";
  FolderChanges changes_ = FolderChanges(profile_);
  TestDesktop desktop_;
  TestInput input_ = TestInput(desktop_);

 private:
  /// The window with this title, after waiting until it is there and takes keys.
  [[nodiscard]] xcb_window_t readyWindow(const std::string& title) const {
    const auto window = desktop_.waitForTitle(title);
    if (!window) {
      ADD_FAILURE() << "no window has the title " << title;
      return XCB_WINDOW_NONE;
    }
    desktop_.watch(*window);
    EXPECT_TRUE(desktop_.waitUntil([&] { return desktop_.isReady(*window); }));
    return *window;
  }

  /// Makes it save its windows, of which the front one must show its last tab. It saves while a page is being loaded,
  /// perhaps before it knows the title, and again when a tab is opened or closed.
  void haveAllSaved() {
    start({url("last")});
    static_cast<void>(readyWindow("Page last"));
    input_.press({XKB_KEY_Control_L}, XKB_KEY_w);
  }

  /// Each tab has its title in the tab bar, and once more in the list of tabs for narrow windows.
  [[nodiscard]] std::vector<Titles> titlesOnScreen() const {
    std::vector<Titles> all;
    for (const AccessibleObject& window : reader_.windows()) {
      Titles titles = {window.name()};
      for (const AccessibleItem& item : window.items())
        if (item.role == "label" && item.name.starts_with("Page "))
          titles.push_back(item.name);
      titles.resize(1 + titles.size() / 2);
      all.push_back(std::move(titles));
    }
    return all;
  }

  PageServer server_;
  ScreenReader reader_;
  std::deque<ChildProcess> processes_;
};

}  // namespace TestSupport

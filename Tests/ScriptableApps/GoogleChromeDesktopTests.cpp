// "Google Chrome" with a real browser of the Chromium family, compared with what the browser itself reports.

#include <functional>
#include <string>

#include <gtest/gtest.h>

#include "Tests/ScriptableApps/GoogleChromeTest.h"
#include "Tests/Support/TestDesktop.h"

namespace {

using TestSupport::BrowserSession;
using TestSupport::BrowserWindow;
using TestSupport::GoogleChromeTest;
using TestSupport::listChromeTabs;
using TestSupport::TestChromium;
using TestSupport::textOfScript;
using TestSupport::withoutTitles;

const TestChromium::Options withPort = {"--remote-debugging-port=0"};

TEST_F(GoogleChromeTest, ListsWhatIsOpenSecondsAfterAChange) {
  TestChromium browser;
  openThreeWindows(browser);
  expectReadSoon(browser, withoutTitles);
  changeMuch(browser);
  expectReadSoon(browser, withoutTitles);
  expectReadSoon(browser, std::identity());
  expectListedSoon(browser);
}

TEST_F(GoogleChromeTest, ListsWhatIsOpenAtOnceIfTheBrowserCanBeAsked) {
  TestChromium browser(withPort);
  openThreeWindows(browser);
  changeMuch(browser);
  expectReadSoon(browser, sorted);
  browser.run("tab('h').then(id => chrome.tabs.move(id, {index: 0}))");
  // The log never has a title that a script has set, so this one comes from the browser itself.
  browser.runInPage(pages_.url("a2"), "document.title = 'By a script'");
  EXPECT_TRUE(TestSupport::TestDesktop().waitForTitle("By a script - Chromium"));
  expectReadSoon(browser, sorted);
  // Only the log knows which window is in front.
  expectReadSoon(browser, std::identity());
  expectListedSoon(browser);
}

TEST_F(GoogleChromeTest, ListsNoOtherWindows) {
  TestChromium browser;
  openThreeWindows(browser);
  openOtherWindows(browser);
  expectReadSoon(browser, sortedWithoutTitles);
}

TEST_F(GoogleChromeTest, ListsNoOtherWindowsIfTheBrowserCanBeAsked) {
  TestChromium browser(withPort);
  openThreeWindows(browser);
  openOtherWindows(browser);
  expectReadSoon(browser, sorted);
}

TEST_F(GoogleChromeTest, ListsTheWindowsOfAllProfiles) {
  TestChromium browser;
  introducePages(browser);
  openWindow(browser, {"first"});
  const BrowserWindow second = {{{"", pages_.url("second")}}, 0};
  TestChromium::ask({"--profile-directory=Profile 1", second.tabs.front().url});
  browser.awaitPage(second.tabs.front().url);
  expectReadSoon(browser, sortedWithoutTitles, {second});
}

TEST_F(GoogleChromeTest, ListsNothingThatWasOpenBeforeTheBrowserWasStarted) {
  // The next browser restores nothing.
  folder_.write("chromium/Default/Preferences", R"({"session": {"restore_on_startup": 5}})");
  {
    TestChromium browser;
    introducePages(browser);
    openWindow(browser, {"before"});
    expectReadSoon(browser, withoutTitles);
  }
  TestChromium browser;
  EXPECT_EQ(textOfScript(listChromeTabs).find(pages_.url("before")), std::string::npos);
  EXPECT_FALSE(browser.hasPage(pages_.url("before")));
}

TEST_F(GoogleChromeTest, ListsWhatHasBeenRestoredAfterACrash) {
  {
    TestChromium browser;
    openThreeWindows(browser);
    expectReadSoon(browser, withoutTitles);
  }
  EXPECT_EQ(textOfScript(listChromeTabs), "-600: Google Chrome got an error: Application isn’t running.");
  TestChromium browser({"--restore-last-session"});
  for (const char* name : {"a", "e", "f", "i", "j", "l"})
    browser.awaitUntil([&] { return browser.hasPage(pages_.url(name)); });
  expectReadSoon(browser, withoutTitles);
}

}  // namespace

// Safari with a real Firefox that starts and ends.

#include <fstream>
#include <memory>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "BrowserSessions/Firefox/RunningFirefox.h"
#include "Tests/ScriptableApps/FirefoxTest.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

using TestSupport::FirefoxTest;
using TestSupport::listSafariWindows;
using TestSupport::TestFirefox;
using TestSupport::textOfScript;

constexpr const char* notRunning = "-600: Safari got an error: Application isn’t running.";

/// Restores the windows and tabs of the last run, and loads a page only when its tab is shown.
const TestFirefox::Preferences restoring = {{"browser.sessionstore.interval", 100},
                                            {"browser.sessionstore.restore_on_demand", true},
                                            {"browser.startup.page", 3}};

class FirefoxRuns : public FirefoxTest {
 protected:
  FirefoxRuns() : FirefoxTest(std::make_shared<TestFirefox>(TestFirefox::start(restoring))) {}

  [[nodiscard]] int countOfUnloadedTabs() {
    return inside("return tabs().filter(t => t.hasAttribute('pending')).length;");
  }
};

TEST_F(FirefoxRuns, ListTabsAgainThatAreNotLoadedYet) {
  inside("await open('a'); await openWindow(['b', 'c', 'd']);");
  const std::string windows = window("b", {"b", "c", "d"}) + window("first", {"first", "a"});
  expectWindows(windows);

  EXPECT_THAT(BrowserSessions::runningFirefoxes(),
              testing::ElementsAre(BrowserSessions::RunningFirefox{firefox_->profile(), firefox_->pid()}));
  firefox_->quit();
  EXPECT_EQ(textOfScript(listSafariWindows), notRunning);
  firefox_->startAgain();
  expectWindows(windows);
  EXPECT_EQ(countOfUnloadedTabs(), 3);

  firefox_->crash();
  EXPECT_EQ(textOfScript(listSafariWindows), notRunning);
  firefox_->startAgain();
  expectWindows(windows);
  EXPECT_EQ(countOfUnloadedTabs(), 3);
}

TEST_F(FirefoxRuns, AreListedTogetherTheOneInFrontFirst) {
  expectWindows(window("first", {"first"}));
  const TestSupport::TemporaryFolder elsewhere;
  TestFirefox other = TestFirefox::startIn(elsewhere.path() / "a profile", restoring);
  const TestSupport::FolderChanges changes(other.sessionFolder());
  startAnew(other, "other");
  raise(other, "other");
  const std::string otherFirst = window("other", {"other"}) + window("first", {"first"});
  EXPECT_TRUE(changes.waitUntil([&] { return textOfScript(listSafariWindows) == otherFirst; }));
  raise("first");
  EXPECT_EQ(textOfScript(listSafariWindows), window("first", {"first"}) + window("other", {"other"}));
}

// After the crash, Firefox restores nothing, and saves nothing during the test before it is told to.
TEST_F(FirefoxRuns, HasNothingListedOfTheRunThatCrashed) {
  inside("await open('a');");
  expectWindows(window("first", {"first", "a"}));
  firefox_->crash();
  std::ofstream(firefox_->profile() / "user.js", std::ios::app)
      << "user_pref('browser.sessionstore.resume_from_crash', false);\n"
      << "user_pref('browser.startup.page', 0);\n"
      << "user_pref('browser.sessionstore.interval', 3600000);\n";
  firefox_->startAgain();
  EXPECT_EQ(textOfScript(listSafariWindows), "-2700: Safari got an error: The session of Firefox in " +
                                                 (firefox_->sessionFolder() / "recovery.jsonlz4").string() +
                                                 " is unknown: It has not been saved since Firefox was started.");
  inside("Services.prefs.setIntPref('browser.sessionstore.interval', 100); await visit(gBrowser.selectedTab, 'b');");
  expectWindows(window("b", {"b"}));
}

TEST_F(FirefoxRuns, HaveTheNamesAndAddressesThatAreShown) {
  const TestSupport::TemporaryFolder folder;
  const std::string text = "file://" + folder.write("a b.txt", "text").parent_path().string() + "/a%20b.txt";
  std::string host = server().url("a");
  host.replace(host.find("127.0.0.1"), std::string("127.0.0.1").size(), "b\u00fccher.localhost");
  inside(
      "Services.prefs.setCharPref('network.proxy.no_proxies_on', '127.0.0.1, .localhost');"
      "await open('" +
      text + "'); await open('data:text/plain,a%20b'); await open('" + host + "');");
  const std::string shown = text.substr(std::string("file://").size());
  const std::string ascii = "http://xn--bcher-kva" + host.substr(host.find(".localhost"));
  expectWindows(window("first", {"first"}) + shown + '\n' + text + "\ndata:text/plain,a%20b\ndata:text/plain,a%20b\n" +
                "Page a\n" + ascii + '\n');
}

}  // namespace

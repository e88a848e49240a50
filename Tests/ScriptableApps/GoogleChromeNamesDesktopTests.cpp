// The titles of a real browser's tabs, and what is reported if tabs are unknown.

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ScriptableApps/Browsers/TabAddress.h"
#include "Tests/ScriptableApps/Scripts.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/FolderChanges.h"
#include "Tests/Support/PageServer.h"
#include "Tests/Support/TemporaryFolder.h"
#include "Tests/Support/TestChromium.h"
#include "Tests/Support/TestDesktop.h"

namespace {

using nlohmann::json;
using TestSupport::FolderChanges;
using TestSupport::listChromeTabs;
using TestSupport::TestChromium;
using TestSupport::textOfScript;

class GoogleChromeNames : public testing::Test {
 protected:
  static void open(TestChromium& browser, const std::string& url) { browser.run("openTab(" + json(url).dump() + ")"); }

  // Makes a window show the server's page with this name.
  void show(TestChromium& browser, const std::string& name) const {
    browser.run("chrome.tabs.query({url: '" + pages_.url(name) +
                "'}).then(([tab]) => chrome.tabs.update(tab.id, {active: true}))");
    EXPECT_TRUE(desktop_.waitForTitle("Page " + name + " - Chromium"));
  }

  // What `listChromeTabs` has to yield, made from what the browser itself reports. The browser has one window.
  static std::string linesIn(TestChromium& browser) {
    std::string lines;
    const json session = browser.run("session()");
    for (const json& tab : session.front()["tabs"])
      lines +=
          tab["title"].get<std::string>() + '\n' + ScriptableApps::tabAddress(tab["url"].get<std::string>()) + '\n';
    return lines;
  }

  // Waits until a script lists this address, and yields the list. The browser logs changes in their order, so the list
  // has all earlier changes too.
  static std::string listedWith(const std::string& url) {
    std::string listed;
    const FolderChanges changes(TestChromium::userData());
    EXPECT_TRUE(changes.waitUntil([&] { return (listed = textOfScript(listChromeTabs)).contains('\n' + url + '\n'); }))
        << listed;
    return listed;
  }

  TestSupport::TestDesktop desktop_;
  TestSupport::PageServer pages_;
  TestSupport::TemporaryFolder folder_;
  TestSupport::EnvironmentVariable configuration_{"XDG_CONFIG_HOME", folder_.path()};
};

TEST_F(GoogleChromeNames, AreShownForPagesWithoutATitle) {
  TestChromium browser;
  const std::string files = "file://" + folder_.write("pages/a ü.txt", "text").parent_path().string();
  folder_.write("pages/untitled.html", "<!doctype html><p>untitled");
  // The browser's first tab may have no page yet.
  browser.run("chrome.tabs.query({}).then(([first]) => chrome.tabs.update(first.id, {url: '" + pages_.url("first") +
              "'}))");
  ASSERT_TRUE(desktop_.waitForTitle("Page first - Chromium"));
  open(browser, files + "/a%20%C3%BC.txt");
  open(browser, files + "/untitled.html");
  open(browser, "data:text/plain,a%20b");
  open(browser, "view-source:" + pages_.url("a%20b"));
  open(browser, "view-source:" + files + "/untitled.html");
  open(browser, "about:blank#last");
  const std::string listed = listedWith("about:blank#last");
  EXPECT_EQ(listed, linesIn(browser));
  EXPECT_THAT(listed, testing::HasSubstr("\na ü.txt\n"));
}

TEST_F(GoogleChromeNames, AreKnownAtOnceForTheTabThatIsShown) {
  TestChromium browser;
  open(browser, pages_.url("new"));
  show(browser, "new");
  open(browser, pages_.url("last"));
  EXPECT_THAT(listedWith(pages_.url("last")), testing::HasSubstr("Page new\n" + pages_.url("new") + '\n'));
}

TEST_F(GoogleChromeNames, AreTheTabsOwnIfSeveralHaveOneAddress) {
  TestChromium browser;
  browser.run("pages = '" + pages_.url() + "'");
  open(browser, pages_.url("a"));
  open(browser, pages_.url("b"));
  show(browser, "a");
  browser.runInPage(pages_.url("a"), "document.title = 'Shown'");
  browser.runInPage(pages_.url("b"), "history.replaceState(null, '', '/a'); document.title = 'Behind'");
  browser.awaitUntil(
      [&] { return browser.run("chrome.tabs.query({url: pages + 'a'}).then(tabs => tabs.length)") == 2; });
  ASSERT_TRUE(desktop_.waitForTitle("Shown - Chromium"));
  open(browser, pages_.url("last"));
  EXPECT_THAT(listedWith(pages_.url("last")), testing::HasSubstr("Shown\n" + pages_.url("a") + '\n'));
}

TEST_F(GoogleChromeNames, AreNotThoseOfPrivateWindows) {
  TestChromium browser;
  TestChromium::ask({"--incognito", pages_.url("private")});
  ASSERT_TRUE(desktop_.waitForTitle("Page private - Chromium"));
  open(browser, pages_.url("last"));
  EXPECT_THAT(listedWith(pages_.url("last")), testing::Not(testing::HasSubstr("private")));
}

TEST_F(GoogleChromeNames, AreMissingForAddressesTooLongForTheLog) {
  TestChromium browser;
  browser.run(R"(new Promise(isLoaded => {
    chrome.tabs.onUpdated.addListener((id, change, tab) => {
      if (tab.title === 'Long' && tab.status === 'complete') isLoaded();
    });
    chrome.tabs.create({active: false, url: 'data:text/html,<title>Long</title>' + 'x'.repeat(70000)});
  }))");
  open(browser, pages_.url("last"));
  testing::internal::CaptureStderr();
  const std::string listed = listedWith(pages_.url("last"));
  EXPECT_THAT(testing::internal::GetCapturedStderr(),
              testing::EndsWith("are too long for the browser's session log: 1.\n"));
  EXPECT_THAT(listed, testing::Not(testing::HasSubstr("Long")));
}

TEST_F(GoogleChromeNames, AreNotKnownWithoutASessionLogOfThisRun) {
  // The browser cannot create a folder for its logs, neither for the readable nor for the encrypted ones.
  folder_.write("chromium/Default/Sessions", "");
  folder_.write("chromium/Default/Sessions_Encrypted", "");
  TestChromium browser;
  TestChromium::ask({pages_.url("a")});
  browser.awaitPage(pages_.url("a"));
  const std::string profile = (TestChromium::userData() / "Default").string();
  EXPECT_EQ(textOfScript(listChromeTabs),
            "-2700: Google Chrome got an error: The session of the profile " + profile +
                " is unknown: the browser has not written a session log since it was started.");
}

}  // namespace

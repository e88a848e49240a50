// "Google Chrome" with a real browser of the Chromium family that has the companion, compared with what the browser
// itself reports at the same moment.

#include <cstdlib>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "BrowserSessions/Chromium/PageNames.h"
#include "BrowserSessions/Companion/Companions.h"
#include "Tests/ScriptableApps/GoogleChromeTest.h"
#include "Tests/Support/BusNames.h"
#include "Tests/Support/SilentServer.h"
#include "Tests/Support/TestDesktop.h"

namespace {

using BrowserSessions::BrowserSession;
using TestSupport::openIn;
using TestSupport::TestChromium;
using TestSupport::textOfScript;

class ChromiumWithCompanion : public TestSupport::GoogleChromeTest {
 protected:
  ChromiumWithCompanion() {
    introducePages(browser_);
    awaitCompanions(1);
  }

  void awaitCompanions(std::size_t count) {
    TestSupport::awaitOwners(BrowserSessions::companionNamePrefix(browser_.pid()), count);
  }

  /// Expects that what is read now equals what the browser reports now. Pages that are still loading may change between
  /// the two, so the browser is asked before and after.
  void expectReadNow(const View& view = std::identity()) {
    BrowserSession before;
    BrowserSession isRead;
    BrowserSession isOpen = openIn(browser_);
    do {
      before = isOpen;
      isRead = TestSupport::read();
      isOpen = openIn(browser_);
    } while (before != isOpen);
    // A page that is still loading has no title, and is listed by the browser's name for it.
    for (auto& window : isOpen)
      for (auto& tab : window.tabs)
        if (tab.title.empty())
          tab.title = BrowserSessions::chromiumPageName(tab.url);
    EXPECT_EQ(view(isRead), view(isOpen));
  }

  /// Brings the window with this page to the front.
  void bringToFront(const std::string& name) {
    browser_.run("windowOf('" + name + "').then(id => chrome.windows.update(id, {focused: true}))");
    browser_.awaitUntil([&] {
      return browser_.run("chrome.windows.getLastFocused().then(async w => w.id === await windowOf('" + name + "'))") ==
             true;
    });
  }

  /// Ends the companion and lets it begin again.
  void beginAnew() {
    const auto prefix = BrowserSessions::companionNamePrefix(browser_.pid());
    const std::string name = TestSupport::awaitOwners(prefix, 1).front();
    browser_.run(
        "chrome.management.getAll().then(all => all.find(({name}) => name.includes('Gleanery')).id)"
        ".then(id => chrome.management.setEnabled(id, false).then(() => chrome.management.setEnabled(id, true)))");
    TestSupport::awaitNoOwner(name);
    awaitCompanions(1);
  }

  /// Waits until the browser itself reports a title.
  void awaitTitle(const std::string& title) {
    const std::string find = "chrome.tabs.query({title: '" + title + "'}).then(tabs => tabs.length)";
    browser_.awaitUntil([&] { return browser_.run(find) == 1; });
  }

  TestChromium browser_{{}, TestChromium::InstalledExtensions::all};
};

TEST_F(ChromiumWithCompanion, ListsEachChangeAtOnce) {
  openThreeWindows(browser_);
  expectReadNow();
  for (const char* name : {"m", "n", "o", "p", "q", "r", "s", "t", "u", "v", "w", "x", "y", "z", "1", "2", "3", "4"})
    browser_.run("openTab(pages + '" + std::string(name) + "')");
  expectReadNow();
  follow(browser_, "a", "a2");
  expectReadNow();
  go(browser_, "a2", "goBack", "a");
  expectReadNow();
  for (const char* change :
       {"tab('c').then(id => chrome.tabs.remove(id))", "tab('d').then(id => chrome.tabs.move(id, {index: 0}))",
        "tab('i').then(id => chrome.tabs.update(id, {pinned: true}))",
        "Promise.all([tab('f'), tab('h')]).then(tabIds => chrome.tabs.group({tabIds}))",
        "Promise.all([tab('k'), windowOf('a')]).then(([id, windowId]) => chrome.tabs.move(id, {windowId, index: 1}))",
        "tab('e').then(tabId => chrome.windows.create({tabId}))",
        "tab('g').then(id => chrome.tabs.update(id, {active: true}))",
        "windowOf('e').then(id => chrome.windows.remove(id))", "openTab(pages + 'new', 0)",
        "tab('b').then(id => chrome.tabs.update(id, {active: true}))",
        "tab('a').then(id => chrome.tabs.update(id, {active: true}))"}) {
    browser_.run(change);
    expectReadNow();
  }
}

TEST_F(ChromiumWithCompanion, ListsTheTitlesThatScriptsSet) {
  openWindow(browser_, {"a"});
  awaitTitle("Page a");
  browser_.runInPage(pages_.url("a"), "document.title = 'Größe | \\u{1F600} \\ud83d'");
  awaitTitle("Größe | *");
  EXPECT_THAT(textOfScript(TestSupport::listChromeTabs), testing::HasSubstr("Größe | 😀 \uFFFD"));
}

TEST_F(ChromiumWithCompanion, ListsTheWindowThatIsInFrontFirst) {
  openThreeWindows(browser_);
  for (const char* name : {"a", "f", "j"}) {
    bringToFront(name);
    expectReadNow();
  }
}

TEST_F(ChromiumWithCompanion, ListsTheWindowFirstThatWasInFrontBeforeItsScriptBegan) {
  openThreeWindows(browser_);
  bringToFront("f");
  beginAnew();
  expectReadNow();
}

TEST_F(ChromiumWithCompanion, MayBeginWithoutAWindow) {
  browser_.run(
      "chrome.windows.getAll().then(async windows => {"
      "  await chrome.windows.create({url: pages + 'private', incognito: true});"
      "  for (const {id} of windows) await chrome.windows.remove(id);"
      "})");
  beginAnew();
  openWindow(browser_, {"a"});
  expectReadNow();
}

TEST_F(ChromiumWithCompanion, ListsNoOtherWindows) {
  openThreeWindows(browser_);
  openOtherWindows(browser_);
  expectReadNow(sorted);
  EXPECT_EQ(textOfScript(TestSupport::listChromeTabs).find(pages_.url("private")), std::string::npos);
}

TEST_F(ChromiumWithCompanion, IsInEachProfile) {
  openWindow(browser_, {"first"});
  TestChromium::ask({"--profile-directory=Profile 1", pages_.url("second")});
  browser_.awaitPage(pages_.url("second"), "Page second");
  awaitCompanions(2);
  const std::string tabs = textOfScript(TestSupport::listChromeTabs);
  for (const char* name : {"first", "second"})
    EXPECT_THAT(tabs, testing::HasSubstr("Page " + std::string(name) + '\n' + pages_.url(name) + '\n'));
}

TEST_F(ChromiumWithCompanion, IsReadWithoutTheBrowsersFiles) {
  openWindow(browser_, {"a"});
  std::filesystem::remove_all(TestChromium::userData() / "Default/Sessions");
  expectReadNow();
}

// More than fits into one message of the extension.
TEST_F(ChromiumWithCompanion, ListsTabsWithLongAddresses) {
  for (int i = 0; i < 6; ++i)
    browser_.run("openTab(pages + 'a#" + std::to_string(i) + "' + 'x'.repeat(60000))");
  expectReadNow();
  EXPECT_THAT(textOfScript(TestSupport::listChromeTabs), testing::HasSubstr("a#5xxx"));
}

TEST_F(ChromiumWithCompanion, LeavesOutTabsWhoseAddressesAreTooLong) {
  browser_.run("openTab(pages + 'b#' + 'x'.repeat(1 << 20)).then(() => openTab(pages + 'c'))");
  const std::string tabs = textOfScript(TestSupport::listChromeTabs);
  EXPECT_THAT(tabs, testing::HasSubstr("Page c\n"));
  EXPECT_THAT(tabs, testing::Not(testing::HasSubstr("Page b\n")));
  // Only as much of the address travels as shows that it is too long.
  const auto reading = BrowserSessions::askCompanions(browser_.pid());
  ASSERT_EQ(reading.answers.size(), 1U);
  for (const auto& window : reading.answers[0].windows)
    EXPECT_LT(window.tabs.size(), 100'000U);
}

TEST_F(ChromiumWithCompanion, ListsTheAddressOfAPageThatIsBeingLoaded) {
  const TestSupport::SilentServer server;
  browser_.run("chrome.tabs.create({url: 'http://" + server.address() + "/slow', active: false})");
  EXPECT_THAT(textOfScript(TestSupport::listChromeTabs), testing::HasSubstr("http://" + server.address() + "/slow\n"));
  browser_.run(
      "chrome.tabs.query({}).then(tabs => tabs.find(({url}) => !url).id)"
      ".then(id => chrome.tabs.update(id, {url: 'http://" +
      server.address() + "/other'}))");
  EXPECT_THAT(textOfScript(TestSupport::listChromeTabs), testing::HasSubstr("http://" + server.address() + "/other\n"));
}

TEST_F(ChromiumWithCompanion, StartsItsProgramAgainIfThatIsKilled) {
  openWindow(browser_, {"a"});
  const auto prefix = BrowserSessions::companionNamePrefix(browser_.pid());
  const std::string name = TestSupport::awaitOwners(prefix, 1).front();
  TestSupport::run({"kill", "-KILL", name.substr(name.rfind("Companion") + 9)});
  TestSupport::awaitNoOwner(name);
  awaitCompanions(1);
  expectReadNow();
}

TEST_F(ChromiumWithCompanion, IsGoneWithTheBrowser) {
  const auto prefix = BrowserSessions::companionNamePrefix(browser_.pid());
  const std::string name = TestSupport::awaitOwners(prefix, 1).front();
  TestSupport::run({"kill", "-KILL", std::to_string(browser_.pid())});
  TestSupport::awaitNoOwner(name);
  EXPECT_EQ(textOfScript(TestSupport::listChromeTabs), "-600: Google Chrome got an error: Application isn’t running.");
}

/// A Chromium that is started as a user does, by its own launcher alone.
TEST(ChromiumLauncher, LoadsTheCompanion) {
  const TestSupport::TemporaryFolder folder;
  const TestSupport::EnvironmentVariable configuration("XDG_CONFIG_HOME", folder.path());
  const TestSupport::PageServer pages;
  TestSupport::ChildProcess browser(
      {"chromium", "--no-sandbox", "--password-store=basic", "--no-first-run", "--disable-gpu", pages.url("a")},
      {.captureErrors = true, .hasHelpers = true});
  TestSupport::awaitOwners(BrowserSessions::companionInterface, 1);
  EXPECT_TRUE(TestSupport::TestDesktop().waitForTitle("Page a - Chromium"));
  EXPECT_EQ(textOfScript(TestSupport::listChromeTabs), "Page a\n" + pages.url("a") + '\n');
}

}  // namespace

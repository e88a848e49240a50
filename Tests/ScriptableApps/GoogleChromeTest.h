#pragma once

#include <algorithm>
#include <functional>
#include <iterator>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "BrowserSessions/Chromium/ChromiumUserData.h"
#include "BrowserSessions/Chromium/RunningChromium.h"
#include "ScriptableApps/Browsers/TabAddress.h"
#include "Tests/BrowserSessions/BrowserSessionPrinting.h"
#include "Tests/ScriptableApps/Scripts.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/PageServer.h"
#include "Tests/Support/TemporaryFolder.h"
#include "Tests/Support/TestChromium.h"

namespace TestSupport {

using BrowserSessions::BrowserSession;
using BrowserSessions::BrowserTab;
using BrowserSessions::BrowserWindow;

inline std::string linesOf(const BrowserSession& session) {
  std::string lines;
  for (const BrowserWindow& window : session)
    for (const BrowserTab& tab : window.tabs)
      lines += tab.title + '\n' + ScriptableApps::tabAddress(tab.url) + '\n';
  return lines;
}

inline BrowserSession withoutTitles(BrowserSession session) {
  for (BrowserWindow& window : session)
    for (BrowserTab& tab : window.tabs)
      tab.title.clear();
  return session;
}

/// What the browser itself reports as open: its normal windows, the one that was used last first, the others in the
/// order in which they were opened.
inline BrowserSession openIn(TestChromium& browser) {
  BrowserSession session;
  for (const nlohmann::json& window : browser.run("session()")) {
    BrowserWindow made;
    for (const nlohmann::json& tab : window["tabs"])
      made.tabs.push_back({tab["title"], tab["url"]});
    made.activeTab = window["active"];
    session.push_back(std::move(made));
  }
  return session;
}

/// What is read of the browser.
inline BrowserSession read() {
  const auto running = BrowserSessions::runningChromiumBrowsers();
  const auto process = running.empty() ? std::nullopt : std::optional(running.front().process);
  const auto reading = BrowserSessions::chromiumUserDataSession(TestChromium::userData(), process);
  return reading ? reading->session : BrowserSession{{{{reading.error(), ""}}}};
}

/// A home for a Chromium with pages, and what users do in it.
class GoogleChromeTest : public testing::Test {
 protected:
  /// Tells the extension's scripts the address of the pages.
  void introducePages(TestChromium& browser) const { browser.run("pages = '" + pages_.url() + "'"); }

  void openWindow(TestChromium& browser, const std::vector<std::string>& names) const {
    browser.run("openWindow(..." + nlohmann::json(names).dump() + ")");
    for (const std::string& name : names)
      browser.awaitPage(pages_.url(name));
  }

  /// Opens three windows with twelve tabs.
  void openThreeWindows(TestChromium& browser) const {
    introducePages(browser);
    browser.run("chrome.tabs.query({}).then(tabs => { first = tabs[0].windowId; })");
    openWindow(browser, {"a", "b", "c", "d", "e"});
    openWindow(browser, {"f", "g", "h", "i"});
    openWindow(browser, {"j", "k", "l"});
    browser.run("chrome.windows.remove(first)");
    browser.awaitUntil([&] { return browser.run("session().then(windows => windows.length)") == 3; });
  }

  /// Takes a tab from one page to another, as by a link, or by "goBack" or "goForward".
  void follow(TestChromium& browser, const std::string& from, const std::string& to) const {
    browser.runInPage(pages_.url(from), "location = '" + to + "'");
    browser.awaitPage(pages_.url(to));
  }
  void go(TestChromium& browser, const std::string& from, const std::string& way, const std::string& to) const {
    browser.run("tab('" + from + "').then(chrome.tabs." + way + ")");
    browser.awaitPage(pages_.url(to));
  }

  /// Changes these tabs as users do.
  void changeMuch(TestChromium& browser) const {
    follow(browser, "a", "a2");
    follow(browser, "a2", "a3");
    go(browser, "a3", "goBack", "a2");
    follow(browser, "b", "b2");
    go(browser, "b2", "goBack", "b");
    go(browser, "b", "goForward", "b2");
    browser.run("tab('c').then(id => chrome.tabs.remove(id))");
    browser.run("tab('d').then(id => chrome.tabs.move(id, {index: 0}))");
    browser.run("tab('i').then(id => chrome.tabs.update(id, {pinned: true}))");
    browser.run("Promise.all([tab('f'), tab('h')]).then(tabIds => chrome.tabs.group({tabIds}))");
    browser.run(
        "Promise.all([tab('k'), windowOf('a2')]).then(([id, windowId]) => "
        "chrome.tabs.move(id, {windowId, index: 1}))");
    browser.run("tab('e').then(tabId => chrome.windows.create({tabId}))");
    browser.run("tab('g').then(id => chrome.tabs.update(id, {active: true}))");
    browser.run("windowOf('j').then(id => chrome.windows.update(id, {focused: true}))");
  }

  /// The windows in the order of their first tabs' addresses.
  static BrowserSession sorted(BrowserSession session) {
    std::ranges::sort(session, {}, [](const BrowserWindow& window) {
      return window.tabs.empty() ? std::string() : window.tabs.front().url;
    });
    return session;
  }

  /// The part of a session that is compared.
  using View = std::function<BrowserSession(BrowserSession)>;
  static BrowserSession sortedWithoutTitles(BrowserSession session) {
    return sorted(withoutTitles(std::move(session)));
  }

  /// Expects that what is read soon equals what the browser itself reports, as far as the view shows it. Both are taken
  /// at the same moment, and again whenever one of them may have changed.
  static void expectReadSoon(TestChromium& browser, const View& view, const BrowserSession& more = {}) {
    BrowserSession isRead;
    BrowserSession isOpen;
    static_cast<void>(browser.waitUntilWritten([&] {
      isOpen = openIn(browser);
      std::ranges::copy(more, std::back_inserter(isOpen));
      isRead = read();
      return view(isRead) == view(isOpen);
    }));
    EXPECT_EQ(view(isRead), view(isOpen));
  }

  /// The same for what a script lists.
  static void expectListedSoon(TestChromium& browser) {
    std::string isListed;
    std::string isOpen;
    static_cast<void>(browser.waitUntilWritten([&] {
      isOpen = linesOf(openIn(browser));
      isListed = textOfScript(listChromeTabs);
      return isListed == isOpen;
    }));
    EXPECT_EQ(isListed, isOpen);
  }

  /// Opens windows that must not be listed.
  void openOtherWindows(TestChromium& browser) const {
    TestChromium::ask({"--incognito", pages_.url("private")});
    browser.awaitPage(pages_.url("private"));
    TestChromium::ask({"--app=" + pages_.url("application")});
    browser.awaitPage(pages_.url("application"));
    browser.runInPage(pages_.url("a"), "window.open('/popup', '', 'popup,width=200,height=200')");
    browser.awaitPage(pages_.url("popup"));
    browser.openDevTools(pages_.url("a"));
    // When this is in the log, everything before it is too.
    browser.run("tab('l').then(id => chrome.tabs.remove(id))");
  }

  PageServer pages_;
  TemporaryFolder folder_;
  EnvironmentVariable configuration_{"XDG_CONFIG_HOME", folder_.path()};
};

}  // namespace TestSupport

#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/ScriptableApps/Scripts.h"
#include "Tests/Support/FolderChanges.h"
#include "Tests/Support/PageServer.h"
#include "Tests/Support/Patience.h"
#include "Tests/Support/TestDesktop.h"
#include "Tests/Support/TestFirefox.h"

namespace TestSupport {

/// Functions for the scripts that run inside Firefox. `pages` is the address of the server.
inline constexpr std::string_view insideFirefox = R"(
  const [pages, patience] = arguments;
  const {setTimeout} = ChromeUtils.importESModule('resource://gre/modules/Timer.sys.mjs');
  const {TabStateFlusher} = ChromeUtils.importESModule('resource:///modules/sessionstore/TabStateFlusher.sys.mjs');
  // The windows that are ready, the one in front first.
  const allWindows = () => BrowserWindowTracker.orderedWindows.filter(w => w.gBrowserInit?.delayedStartupFinished);
  const windows = () => allWindows().filter(w => !PrivateBrowsingUtils.isWindowPrivate(w));
  const tabs = () => windows().flatMap(w => w.gBrowser.tabs);
  // The tab that shows the page with this name.
  const tab = name => tabs().find(t => t.linkedBrowser.currentURI.spec === pages + name);
  const windowOf = tab => tab.ownerDocument.defaultView;
  // The address of the server's page with this name. Other addresses are unchanged.
  const address = name => new URL(name, pages).href;
  const isInFront = w => (Services.focus.activeWindow ?? BrowserWindowTracker.orderedWindows[0]) === w;
  // Whether the tab's label is the title of its loaded page.
  const isLabelled = tab => !tab.hasAttribute('busy') && tab.label === (tab.linkedBrowser.contentTitle || tab.label);
  const isAt = (tab, address) => tab.linkedBrowser.currentURI.spec === address && isLabelled(tab);
  // The windows as a script lists them.
  const shownAddress = tab => {
    const spec = tab.linkedBrowser.currentURI.spec;
    return ReaderMode.getOriginalUrl(spec) ?? spec;
  };
  const listed = () => windows().map(w => `a window that shows ${w.gBrowser.selectedTab.label}\n` +
    w.gBrowser.tabs.filter(t => !t.hidden).map(t => `${t.label}\n${shownAddress(t)}\n`).join('')).join('');
  // Waits until a condition holds, which is checked whenever a tab, its label or its page changes, or a window opens,
  // closes or comes to the front. Throws if that takes so long that something must be broken.
  const until = condition => new Promise((resolve, reject) => {
    const tabEvents = ['TabOpen', 'TabClose', 'TabMove', 'TabSelect', 'TabAttrModified', 'TabHide', 'TabShow'];
    const stops = [];
    const stop = () => stops.splice(0).forEach(stop => stop());
    // After all other listeners have received the event.
    const look = () => Services.tm.dispatchToMainThread(() => {
      if (!stops.length || !condition()) return;
      stop();
      resolve();
    });
    const watch = w => {
      const progress = {onLocationChange: look, onStateChange: look};
      w.gBrowser.addTabsProgressListener(progress);
      stops.push(() => w.gBrowser?.removeTabsProgressListener(progress));
      for (const event of ['activate', ...tabEvents]) {
        w.addEventListener(event, look);
        stops.push(() => w.removeEventListener(event, look));
      }
    };
    for (const topic of ['browser-delayed-startup-finished', 'domwindowclosed']) {
      const observer = w => { if (topic !== 'domwindowclosed') watch(w); look(); };
      Services.obs.addObserver(observer, topic);
      stops.push(() => Services.obs.removeObserver(observer, topic));
    }
    allWindows().forEach(watch);
    const giveUp = () => { stop(); reject(new Error(`not so: ${condition}, but: ${listed()}`)); };
    setTimeout(() => stops.length && giveUp(), patience);
    look();
  });
  // Waits until the tab has loaded the page at the address and is labelled with its title.
  const loaded = async (tab, address) => {
    const browser = tab.linkedBrowser;
    await new Promise(resolve => {
      const listener = {
        onStateChange(changed, progress, request, flags) {
          const done = Ci.nsIWebProgressListener.STATE_STOP | Ci.nsIWebProgressListener.STATE_IS_WINDOW;
          if (changed !== browser || browser.currentURI.spec !== address || (flags & done) !== done) return;
          windowOf(tab).gBrowser.removeTabsProgressListener(listener);
          resolve();
        }};
      windowOf(tab).gBrowser.addTabsProgressListener(listener);
    });
    await until(() => isLabelled(tab));
    return tab;
  };
  // Loads a page in a tab.
  const visit = (tab, name) => {
    const triggeringPrincipal = Services.scriptSecurityManager.getSystemPrincipal();
    tab.linkedBrowser.loadURI(Services.io.newURI(address(name)), {triggeringPrincipal});
    return loaded(tab, address(name));
  };
  // Loads a page in a new tab after the others.
  const open = (name, w = window) => loaded(w.gBrowser.addTrustedTab(address(name)), address(name));
  // Opens a window in front of the others, with a tab for each page. The window is created with the first page: one that
  // is loaded later may be replaced by the window's own start page.
  const openWindow = async (names, options = {}) => {
    const first = Cc['@mozilla.org/supports-string;1'].createInstance(Ci.nsISupportsString);
    first.data = address(names[0]);
    const w = await BrowserWindowTracker.promiseOpenWindow({...options, args: first});
    await until(() => isInFront(w) && isAt(w.gBrowser.selectedTab, first.data));
    for (const name of names.slice(1)) await open(name, w);
    return w;
  };
  // Runs a script in a tab's page.
  const inPage = (tab, script) => tab.linkedBrowser.messageManager.loadFrameScript(
    'data:text/javascript;charset=utf-8,' + encodeURIComponent(script), false);
  const observed = (topic, w) => new Promise(resolve => Services.obs.addObserver(function observer(subject) {
    if (subject !== w) return;
    Services.obs.removeObserver(observer, topic);
    resolve();
  }, topic));
  // Makes the session store update all pages. If a page moves to another process while the store waits for its state,
  // the state may never come, and the store does not ask again before the page changes.
  const noticed = () => Promise.all(windows().map(w => {
    for (const tab of w.gBrowser.tabs) tab.linkedBrowser.frameLoader?.requestSHistoryUpdate();
    return TabStateFlusher.flushWindow(w);
  }));
  // Brings a window to the front.
  const raise = w => { w.focus(); return until(() => isInFront(w)); };
  // Moves a tab to a new window.
  const tearOff = async tab => {
    const page = tab.linkedBrowser.currentURI.spec;
    const w = windowOf(tab).gBrowser.replaceTabWithWindow(tab);
    await observed('browser-delayed-startup-finished', w);
    await until(() => isInFront(w) && isAt(w.gBrowser.selectedTab, page));
  };
  const close = w => { const closed = observed('domwindowclosed', w); w.close(); return closed; };
)";

/// A Firefox with one tab, which shows the page "first".
class FirefoxTest : public testing::Test {
 protected:
  explicit FirefoxTest(std::shared_ptr<TestFirefox> firefox)
      : firefox_(std::move(firefox)), changes_(firefox_->sessionFolder()) {
    startAnew(*firefox_, "first");
  }

  /// Runs a script inside this Firefox.
  static nlohmann::json inside(TestFirefox& firefox, const std::string& script) {
    return firefox.run("return (async () => {" + std::string(insideFirefox) + script + "}).apply(null, arguments)",
                       {server().url(), milliseconds(patience)});
  }
  nlohmann::json inside(const std::string& script) { return inside(*firefox_, script); }

  /// Waits until Firefox itself reports these windows, and then until a script lists them.
  void expectWindows(const std::string& windows) {
    // The order of the windows is only saved together with something else.
    const auto said = inside("const expected = " + nlohmann::json(windows).dump() + R"(;
                              await until(() => listed() === expected).catch(() => {});
                              await noticed();
                              SessionStore.setCustomWindowValue(window, 'compared', `${Date.now()}`);
                              return listed();)");
    EXPECT_EQ(said, windows);
    EXPECT_TRUE(changes_.waitUntil([&] { return textOfScript(listSafariWindows) == windows; }))
        << textOfScript(listSafariWindows);
  }

  /// Brings the window that shows the page with this name to the front.
  void raise(TestFirefox& firefox, const std::string& name) {
    const auto window = desktop_.waitForTitle("Page " + name + " — Mozilla Firefox");
    ASSERT_TRUE(window);
    desktop_.askWindowManager(*window, "_NET_ACTIVE_WINDOW");
    EXPECT_TRUE(desktop_.waitUntil([&] { return desktop_.stackedClients().back() == *window; }));
    inside(firefox, "await until(() => isInFront(windowOf(tab('" + name + "'))));");
  }
  void raise(const std::string& name) { raise(*firefox_, name); }

  /// What a script yields for a window with the pages `names`, of which it shows `shown`.
  static std::string window(const std::string& shown, const std::vector<std::string>& names) {
    std::string text = "a window that shows Page " + shown + '\n';
    for (const std::string& name : names)
      text += lines(name);
    return text;
  }

  /// What the scripts yield for the server's page with this name.
  static std::string lines(const std::string& name) { return "Page " + name + '\n' + server().url(name) + '\n'; }

  static PageServer& server() {
    static PageServer server;
    return server;
  }

  /// Closes everything except a tab with this page.
  static void startAnew(TestFirefox& firefox, const std::string& name) {
    inside(firefox, "const only = await open('" + name + "');" + R"(
              for (const w of BrowserWindowTracker.orderedWindows.filter(w => w !== window)) await close(w);
              gBrowser.selectedTab = only;
              for (const tab of [...gBrowser.tabs].filter(t => t !== only)) gBrowser.removeTab(tab);
              await noticed();)");
  }

  std::shared_ptr<TestFirefox> firefox_;
  FolderChanges changes_;
  TestDesktop desktop_;
};

}  // namespace TestSupport

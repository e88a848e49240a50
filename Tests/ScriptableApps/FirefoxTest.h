#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/ScriptableApps/SafariScripts.h"
#include "Tests/ScriptableApps/Scripts.h"
#include "Tests/Support/FolderChanges.h"
#include "Tests/Support/PageServer.h"
#include "Tests/Support/TestDesktop.h"
#include "Tests/Support/TestFirefox.h"

namespace TestSupport {

/// What the scripts that run inside Firefox can use. `pages` is the address of the server.
inline constexpr std::string_view insideFirefox = R"(
  const pages = arguments[0];
  const windows = () => BrowserWindowTracker.orderedWindows.filter(w => !PrivateBrowsingUtils.isWindowPrivate(w));
  const tabs = () => windows().flatMap(w => w.gBrowser.tabs);
  // The tab at the page with this name.
  const tab = name => tabs().find(t => t.linkedBrowser.currentURI.spec === pages + name);
  const windowOf = tab => tab.ownerDocument.defaultView;
  // The address of the server's page with this name; another address is as it is.
  const address = name => new URL(name, pages).href;
  // Waits until the page at the address has been loaded in the tab.
  const loaded = (tab, address) => new Promise(resolve => {
    const browser = tab.linkedBrowser;
    const listener = {
      onStateChange(changed, progress, request, flags) {
        const done = Ci.nsIWebProgressListener.STATE_STOP | Ci.nsIWebProgressListener.STATE_IS_WINDOW;
        if (changed !== browser || browser.currentURI.spec !== address || (flags & done) !== done) return;
        windowOf(tab).gBrowser.removeTabsProgressListener(listener);
        resolve(tab);
      }};
    windowOf(tab).gBrowser.addTabsProgressListener(listener);
  });
  // Goes to an address in a tab, …
  const visit = (tab, name) => {
    const triggeringPrincipal = Services.scriptSecurityManager.getSystemPrincipal();
    tab.linkedBrowser.loadURI(Services.io.newURI(address(name)), {triggeringPrincipal});
    return loaded(tab, address(name));
  };
  // … and in a new one, behind the others.
  const open = (name, w = window) => loaded(w.gBrowser.addTrustedTab(address(name)), address(name));
  // A new window, with a tab at each of the pages.
  const openWindow = async (names, options = {}) => {
    const w = await BrowserWindowTracker.promiseOpenWindow(options);
    await visit(w.gBrowser.tabs[0], names[0]);
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
  // Takes a tab to a window of its own.
  const tearOff = tab => observed('browser-delayed-startup-finished', windowOf(tab).gBrowser.replaceTabWithWindow(tab));
  const close = w => { const closed = observed('domwindowclosed', w); w.close(); return closed; };
)";

/// A Firefox, with the page "first" in its only tab.
class FirefoxTest : public testing::Test {
 protected:
  explicit FirefoxTest(std::shared_ptr<TestFirefox> firefox)
      : firefox_(std::move(firefox)), changes_(firefox_->sessionFolder()) {
    startAnew();
  }

  /// Runs a script inside this Firefox.
  static nlohmann::json inside(TestFirefox& firefox, const std::string& script) {
    return firefox.run("return (async () => {" + std::string(insideFirefox) + script + "}).apply(null, arguments)",
                       {server().url()});
  }
  nlohmann::json inside(const std::string& script) { return inside(*firefox_, script); }

  /// Waits until a script yields this, and compares that with what Firefox itself says.
  void expectWindows(const std::string& windows) {
    std::string listed;
    static_cast<void>(changes_.waitUntil([&] { return (listed = textOfScript(listWindows)) == windows; }));
    EXPECT_EQ(listed, windows);
    EXPECT_EQ(listed, windowsInside());
  }

  /// Brings the window that shows the page with this name to the front.
  void raise(const std::string& name) const {
    const auto window = desktop_.waitForTitle("Page " + name + " — Mozilla Firefox");
    ASSERT_TRUE(window);
    desktop_.askWindowManager(*window, "_NET_ACTIVE_WINDOW");
    EXPECT_TRUE(desktop_.waitUntil([&] { return desktop_.stackedClients().back() == *window; }));
  }

  /// A window as a script yields it that has the pages with these names, and the shown one as the first of them.
  static std::string window(const std::string& shown, const std::vector<std::string>& names) {
    std::string text = "a window that shows Page " + shown + '\n';
    for (const std::string& name : names)
      text += lines(name);
    return text;
  }

  /// What the scripts yield for a page of the server.
  static std::string lines(const std::string& name) { return "Page " + name + '\n' + server().url(name) + '\n'; }

  static PageServer& server() {
    static PageServer server;
    return server;
  }

  std::shared_ptr<TestFirefox> firefox_;
  FolderChanges changes_;
  TestDesktop desktop_;

 private:
  /// What Firefox itself says that `listWindows` has to yield.
  std::string windowsInside() {
    return inside(R"(
      const shownAddress = tab => {
        const spec = tab.linkedBrowser.currentURI.spec;
        return ReaderMode.getOriginalUrl(spec) ?? spec;
      };
      return windows().map(w => `a window that shows ${w.gBrowser.selectedTab.label}\n` +
        w.gBrowser.tabs.filter(t => !t.hidden).map(t => `${t.label}\n${shownAddress(t)}\n`).join('')).join('');)");
  }

  void startAnew() {
    inside(R"(for (const w of BrowserWindowTracker.orderedWindows.filter(w => w !== window)) await close(w);
              const first = await open('first');
              gBrowser.selectedTab = first;
              for (const tab of [...gBrowser.tabs].filter(t => t !== first)) gBrowser.removeTab(tab);)");
  }
};

}  // namespace TestSupport

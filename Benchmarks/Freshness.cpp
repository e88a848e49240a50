// Measures how long after a change in a browser it can be read: from the moment at which the browser itself reports the
// change to the end of the first reading that has it. With --companion, the browser has the companion, which must be
// installed.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "BrowserSessions/Companion/CompanionAnswer.h"
#include "Tests/ScriptableApps/Scripts.h"
#include "Tests/Support/BusNames.h"
#include "Tests/Support/PageServer.h"
#include "Tests/Support/TestChromium.h"
#include "Tests/Support/TestFirefox.h"

namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;
using TestSupport::TestChromium;
using TestSupport::TestFirefox;

constexpr int rounds = 6;
/// What takes longer counts as never.
constexpr std::chrono::seconds patience{40};

/// What is done in a browser. Each returns when the browser itself reports it.
struct Browser {
  std::string_view list;
  std::function<void(const std::string& page)> open;
  std::function<void(const std::string& from, const std::string& to)> visit;
  std::function<void(const std::string& page, const std::string& title)> setTitle;
  std::function<void(const std::string& page)> close;
};

/// How long it takes until a text is listed, or is not any more.
double delayUntil(const Browser& browser, const std::string& text, bool isListed) {
  const auto start = Clock::now();
  while (TestSupport::textOfScript(browser.list).contains(text) != isListed)
    if (Clock::now() - start > patience)
      return Seconds(patience).count();
  return Seconds(Clock::now() - start).count();
}

void print(const char* change, std::vector<double> delays) {
  std::ranges::sort(delays);
  if (delays[delays.size() / 2] >= Seconds(patience).count()) {
    std::printf("%-28s    never\n", change);
    return;
  }
  std::printf("%-28s %8.3f s (%.3f to %.3f)\n", change, delays[delays.size() / 2], delays.front(), delays.back());
}

void measure(const Browser& browser) {
  std::vector<double> opened;
  std::vector<double> visited;
  std::vector<double> titled;
  std::vector<double> closed;
  for (int round = 0; round < rounds; ++round) {
    const std::string name = "new" + std::to_string(round);
    const std::string other = "other" + std::to_string(round);
    browser.open(name);
    opened.push_back(delayUntil(browser, "Page " + name, true));
    browser.visit(name, other);
    visited.push_back(delayUntil(browser, "Page " + other, true));
    browser.setTitle(other, "Title of " + name);
    titled.push_back(delayUntil(browser, "Title of " + name, true));
    browser.close(other);
    closed.push_back(delayUntil(browser, other, false));
  }
  print("new tab", opened);
  print("other page", visited);
  print("title changed by a script", titled);
  print("tab closed", closed);
}

void awaitCompanion(bool hasCompanion) {
  if (hasCompanion)
    TestSupport::awaitOwners(BrowserSessions::companionInterface, 1);
}

void measureChromium(const TestSupport::PageServer& pages, bool hasCompanion) {
  using enum TestChromium::InstalledExtensions;
  TestChromium chromium({}, hasCompanion ? all : none);
  awaitCompanion(hasCompanion);
  chromium.run("pages = '" + pages.url() + "'");
  const auto awaitTitle = [&](const std::string& title) {
    const std::string find = "chrome.tabs.query({title: '" + title + "'}).then(tabs => tabs.length)";
    chromium.awaitUntil([&] { return chromium.run(find) == 1; });
  };
  measure(
      {.list = TestSupport::listChromeTabs,
       .open = [&](const std::string& page) { chromium.run("openTab(pages + '" + page + "')"); },
       .visit =
           [&](const std::string& from, const std::string& to) {
             chromium.runInPage(pages.url(from), "location = '" + to + "'");
             awaitTitle("Page " + to);
           },
       .setTitle =
           [&](const std::string& page, const std::string& title) {
             chromium.runInPage(pages.url(page), "document.title = '" + title + "'");
             awaitTitle(title);
           },
       .close =
           [&](const std::string& page) { chromium.run("tab('" + page + "').then(id => chrome.tabs.remove(id))"); }});
}

/// Functions for scripts in Firefox; `pages` is the address of the server.
constexpr const char* insideFirefox = R"(
  const [pages] = arguments;
  const tab = name => gBrowser.tabs.find(t => t.linkedBrowser.currentURI.spec === pages + name);
  const labelled = (tab, label) => new Promise(resolve => {
    const look = () => tab.label === label && !tab.hasAttribute('busy') && resolve();
    tab.addEventListener('TabAttrModified', look);
    look();
  });
  const principal = Services.scriptSecurityManager.getSystemPrincipal();
)";

void measureFirefox(const TestSupport::PageServer& pages, bool hasCompanion) {
  TestFirefox::Preferences preferences = TestFirefox::Preferences::object();
  if (hasCompanion)
    preferences[TestSupport::enabledScopes] = TestSupport::allScopes;
  TestFirefox firefox = TestFirefox::start(preferences);
  awaitCompanion(hasCompanion);
  const auto inside = [&](const std::string& script) {
    firefox.run("return (async () => {" + std::string(insideFirefox) + script + "}).apply(null, arguments)",
                {pages.url()});
  };
  measure({.list = TestSupport::listSafariTabs,
           .open =
               [&](const std::string& page) {
                 inside("await labelled(gBrowser.addTrustedTab(pages + '" + page + "'), 'Page " + page + "');");
               },
           .visit =
               [&](const std::string& from, const std::string& to) {
                 inside("const t = tab('" + from + "'); t.linkedBrowser.loadURI(Services.io.newURI(pages + '" + to +
                        "'), {triggeringPrincipal: principal}); await labelled(t, 'Page " + to + "');");
               },
           .setTitle =
               [&](const std::string& page, const std::string& title) {
                 inside("const t = tab('" + page +
                        "'); t.linkedBrowser.messageManager.loadFrameScript('data:,content.document.title=\"" + title +
                        "\"', false); await labelled(t, '" + title + "');");
               },
           .close = [&](const std::string& page) { inside("gBrowser.removeTab(tab('" + page + "'));"); }});
}

}  // namespace

int main(int argc, char** argv) {
  const std::string_view browser = argc > 1 ? argv[1] : "";
  const bool hasCompanion = argc == 3 && std::string_view(argv[2]) == "--companion";
  const TestSupport::PageServer pages;
  if (browser == "chromium")
    measureChromium(pages, hasCompanion);
  else if (browser == "firefox")
    measureFirefox(pages, hasCompanion);
  else
    std::fprintf(stderr, "Usage: %s chromium|firefox [--companion]\n", argv[0]);
  return browser.empty() ? 2 : 0;
}

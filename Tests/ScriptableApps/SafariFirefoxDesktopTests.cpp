// Safari with a real Firefox.

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "Tests/ScriptableApps/FirefoxTest.h"

namespace {

using TestSupport::listSafariTabs;
using TestSupport::TestFirefox;
using TestSupport::textOfScript;

/// Firefox saves some things two seconds after a change, and by default the others much later.
const TestFirefox::Preferences savingSoon = {{"browser.sessionstore.interval", 100}};

class FirefoxTabs : public TestSupport::FirefoxTest {
 protected:
  static void SetUpTestSuite() { running() = std::make_shared<TestFirefox>(TestFirefox::start(savingSoon)); }
  static void TearDownTestSuite() { running().reset(); }

  FirefoxTabs() : FirefoxTest(running()) {}

 private:
  static std::shared_ptr<TestFirefox>& running() {
    static std::shared_ptr<TestFirefox> firefox;
    return firefox;
  }
};

TEST_F(FirefoxTabs, AreListedForEachWindow) {
  inside(R"(for (const name of ['a', 'b', 'c']) await open(name);
            await openWindow(['d', 'e', 'f', 'g', 'h']);
            await openWindow(['i', 'j', 'k']);)");
  expectWindows(window("i", {"i", "j", "k"}) + window("d", {"d", "e", "f", "g", "h"}) +
                window("first", {"first", "a", "b", "c"}));
  EXPECT_EQ(textOfScript(listSafariTabs), lines("i") + lines("j") + lines("k") + lines("d") + lines("e") + lines("f") +
                                              lines("g") + lines("h") + lines("first") + lines("a") + lines("b") +
                                              lines("c"));
}

TEST_F(FirefoxTabs, FollowWhenTheyAreMovedClosedAndTakenToOtherWindows) {
  inside(R"(for (const name of ['a', 'b', 'c', 'd']) await open(name);
            await openWindow(['e']);
            gBrowser.moveTabTo(tab('d'), {tabIndex: 1});
            gBrowser.removeTab(tab('b'));
            await tearOff(tab('c'));)");
  expectWindows(window("c", {"c"}) + window("e", {"e"}) + window("first", {"first", "d", "a"}));
  inside(R"(const e = windowOf(tab('e'));
            e.gBrowser.adoptTab(tab('d'), {tabIndex: 0, selectTab: true});
            await close(windowOf(tab('c')));
            await raise(e);)");
  expectWindows(window("d", {"d", "e"}) + window("first", {"first", "a"}));
}

TEST_F(FirefoxTabs, AreAtThePageToWhichTheUserWent) {
  inside("for (const name of ['a', 'b', 'c']) await visit(gBrowser.selectedTab, name);");
  expectWindows(window("c", {"c"}));
  // Goes back only: after that, Firefox once went two pages forward when it was told to go one.
  inside("gBrowser.gotoIndex(gBrowser.selectedBrowser.browsingContext.sessionHistory.index - 1);");
  expectWindows(window("b", {"b"}));
}

TEST_F(FirefoxTabs, HaveTheTitlesAndAddressesThatScriptsGiveThemAsSoonAsFirefoxSavesThem) {
  inside(R"(Services.prefs.clearUserPref('browser.sessionstore.interval');
            await open('a');
            inPage(tab('first'), `content.document.title = 'Größe & <b> \u{1f600}'`);
            inPage(tab('a'), `content.history.pushState(null, '', '/pushed?x=%20#y')`);)");
  expectWindows("a window that shows Größe & <b> 😀\nGröße & <b> 😀\n" + server().url("first") + "\nPage a\n" +
                server().url("pushed?x=%20#y") + "\n");
  inside("Services.prefs.setIntPref('browser.sessionstore.interval', 100);");
}

TEST_F(FirefoxTabs, AreListedIfPinnedOrInAGroupButNotIfHidden) {
  inside(R"(for (const name of ['a', 'b', 'c', 'd', 'e']) await open(name);
            gBrowser.pinTab(tab('c'));
            gBrowser.addTabGroup([tab('a')], {label: 'open', insertBefore: tab('a')});
            gBrowser.addTabGroup([tab('d')], {label: 'closed', insertBefore: tab('d')}).collapsed = true;
            gBrowser.hideTab(tab('b'));
            gBrowser.selectedTab = tab('e');)");
  expectWindows(window("e", {"c", "first", "a", "d", "e"}));
}

TEST_F(FirefoxTabs, AreNotListedInPrivateWindows) {
  inside("await openWindow(['secret', 'secret2'], {private: true}); await open('a');");
  expectWindows(window("first", {"first", "a"}));
}

TEST_F(FirefoxTabs, HaveThePagesAddressInTheReadingView) {
  inside(R"(await open('a');
            const reader = await open('about:reader?url=' + encodeURIComponent(pages + 'read'));
            gBrowser.selectedTab = reader;)");
  expectWindows(window("read", {"first", "a", "read"}));
}

TEST_F(FirefoxTabs, MayBeAtPagesOfFirefoxItself) {
  inside("for (const page of ['about:config', 'view-source:' + pages + 'a']) await open(page);");
  expectWindows(window("first", {"first"}) + "Advanced Preferences\nabout:config\n" + server().url("a") +
                "\nview-source:" + server().url("a") + "\n");
}

TEST_F(FirefoxTabs, AreInTheWindowsFromTheTopmostDown) {
  inside("await openWindow(['a']); await openWindow(['b']);");
  expectWindows(window("b", {"b"}) + window("a", {"a"}) + window("first", {"first"}));
  raise("a");
  // Firefox saves the order of windows only together with something else.
  inside("await visit(tab('b'), 'c');");
  expectWindows(window("a", {"a"}) + window("c", {"c"}) + window("first", {"first"}));
}

}  // namespace

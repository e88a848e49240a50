// Safari with a real Firefox that has the companion, compared with what Firefox itself reports at the same moment.

#include <memory>
#include <string>

#include <gmock/gmock.h>

#include "BrowserSessions/Companion/CompanionAnswer.h"
#include "Tests/ScriptableApps/FirefoxTest.h"
#include "Tests/Support/BusNames.h"

namespace {

using TestSupport::listSafariWindows;
using TestSupport::TestFirefox;
using TestSupport::textOfScript;

const TestFirefox::Preferences withCompanion = {{TestSupport::enabledScopes, TestSupport::allScopes}};

class FirefoxWithCompanion : public TestSupport::FirefoxTest {
 protected:
  static void SetUpTestSuite() {
    running() = std::make_shared<TestFirefox>(TestFirefox::start(withCompanion));
    TestSupport::awaitOwners(BrowserSessions::companionNamePrefix(running()->pid()), 1);
  }
  static void TearDownTestSuite() { running().reset(); }

  FirefoxWithCompanion() : FirefoxTest(running()) {}

  /// Waits until Firefox itself reports these windows. Expects that a script lists them then.
  void expectWindowsNow(const std::string& windows) {
    EXPECT_EQ(inside("const expected = " + nlohmann::json(windows).dump() + R"(;
                      await until(() => listed() === expected).catch(() => {});
                      return listed();)"),
              windows);
    EXPECT_EQ(textOfScript(listSafariWindows), windows);
  }

 private:
  static std::shared_ptr<TestFirefox>& running() {
    static std::shared_ptr<TestFirefox> firefox;
    return firefox;
  }
};

TEST_F(FirefoxWithCompanion, ListsEachChangeAtOnce) {
  expectWindowsNow(window("first", {"first"}));
  inside("for (const name of ['a', 'b', 'c', 'd']) await open(name);");
  expectWindowsNow(window("first", {"first", "a", "b", "c", "d"}));
  inside("await openWindow(['e', 'f', 'g', 'h', 'i', 'j', 'k', 'l', 'm', 'n', 'o', 'p', 'q']);");
  expectWindowsNow(window("e", {"e", "f", "g", "h", "i", "j", "k", "l", "m", "n", "o", "p", "q"}) +
                   window("first", {"first", "a", "b", "c", "d"}));
  inside("await close(windowOf(tab('e'))); await openWindow(['e']);");
  expectWindowsNow(window("e", {"e"}) + window("first", {"first", "a", "b", "c", "d"}));
  inside("gBrowser.moveTabTo(tab('d'), {tabIndex: 1});");
  expectWindowsNow(window("e", {"e"}) + window("first", {"first", "d", "a", "b", "c"}));
  inside("gBrowser.removeTab(tab('b'));");
  expectWindowsNow(window("e", {"e"}) + window("first", {"first", "d", "a", "c"}));
  inside("gBrowser.pinTab(tab('c'));");
  expectWindowsNow(window("e", {"e"}) + window("first", {"c", "first", "d", "a"}));
  inside("await visit(tab('a'), 'a2');");
  expectWindowsNow(window("e", {"e"}) + window("first", {"c", "first", "d", "a2"}));
  inside("gBrowser.selectedTab = tab('d');");
  expectWindowsNow(window("e", {"e"}) + window("d", {"c", "first", "d", "a2"}));
  inside("await tearOff(tab('d'));");
  expectWindowsNow(window("d", {"d"}) + window("e", {"e"}) + window("a2", {"c", "first", "a2"}));
}

TEST_F(FirefoxWithCompanion, ListsTheTitlesAndAddressesThatScriptsSet) {
  inside(R"(await open('a');
            inPage(tab('first'), `content.document.title = 'Größe & <b> \u{1f600}'`);
            inPage(tab('a'), `content.history.pushState(null, '', '/pushed?x=%20#y')`);)");
  expectWindowsNow("a window that shows Größe & <b> 😀\nGröße & <b> 😀\n" + server().url("first") + "\nPage a\n" +
                   server().url("pushed?x=%20#y") + "\n");
}

TEST_F(FirefoxWithCompanion, ListsTabsInGroupsButNotHiddenOnes) {
  inside(R"(for (const name of ['a', 'b', 'c']) await open(name);
            gBrowser.addTabGroup([tab('a')], {label: 'closed', insertBefore: tab('a')}).collapsed = true;
            gBrowser.hideTab(tab('b'));
            gBrowser.selectedTab = tab('c');)");
  expectWindowsNow(window("c", {"first", "a", "c"}));
}

TEST_F(FirefoxWithCompanion, ListsNoPrivateWindows) {
  inside("await openWindow(['secret', 'secret2'], {private: true}); await open('a');");
  expectWindowsNow(window("first", {"first", "a"}));
}

TEST_F(FirefoxWithCompanion, ListsTheTopmostWindowFirst) {
  inside("await openWindow(['a']); await openWindow(['b']);");
  expectWindowsNow(window("b", {"b"}) + window("a", {"a"}) + window("first", {"first"}));
  raise("first");
  expectWindowsNow(window("first", {"first"}) + window("b", {"b"}) + window("a", {"a"}));
  raise("a");
  expectWindowsNow(window("a", {"a"}) + window("first", {"first"}) + window("b", {"b"}));
}

TEST_F(FirefoxWithCompanion, ListsPagesOfFirefoxItself) {
  inside("for (const page of ['about:config', 'view-source:' + pages + 'a']) await open(page);");
  expectWindowsNow(window("first", {"first"}) + "Advanced Preferences\nabout:config\n" + server().url("a") +
                   "\nview-source:" + server().url("a") + "\n");
}

TEST_F(FirefoxWithCompanion, ListsThePagesAddressInTheReadingView) {
  inside("gBrowser.selectedTab = await open('about:reader?url=' + encodeURIComponent(pages + 'read'));");
  expectWindowsNow(window("read", {"first", "read"}));
}

TEST_F(FirefoxWithCompanion, IsNotNeeded) {
  const auto prefix = BrowserSessions::companionNamePrefix(firefox_->pid());
  const std::string name = TestSupport::awaitOwners(prefix, 1).front();
  const std::string program = name.substr(name.rfind("Companion") + 9);
  // A program that hangs is waited for, and then the saved session is listed.
  inside("await open('late');");
  TestSupport::run({"kill", "-STOP", program});
  EXPECT_EQ(textOfScript(listSafariWindows).find("late"), std::string::npos);
  TestSupport::run({"kill", "-CONT", program});
  expectWindowsNow(window("first", {"first", "late"}));
}

}  // namespace

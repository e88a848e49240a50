#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "BrowserSessions/BrowserSession.h"
#include "BrowserSessions/Firefox/FirefoxState.h"
#include "Tests/BrowserSessions/BrowserSessionPrinting.h"

namespace {

using BrowserSessions::BrowserSession;
using BrowserSessions::BrowserTab;
using BrowserSessions::BrowserWindow;
using BrowserSessions::firefoxState;
using BrowserSessions::longestAddress;
using testing::ElementsAre;

std::string page(const std::string& title, const std::string& url) {
  return R"({"url":")" + url + R"(","title":")" + title + R"(","ID":7,"children":[{"url":"frame:","title":"frame"}]})";
}

std::string tab(const std::string& letter, const std::string& more = "") {
  return R"({"entries":[)" + page(letter, letter + ":") + R"(],"index":1,"pinned":true)" + more + "}";
}

std::string window(const std::string& tabs, const std::string& more = "") {
  return R"({"tabs":[)" + tabs + "]" + more + "}";
}

std::string state(const std::string& windows, const std::string& more = "") {
  return R"({"version":["sessionrestore",1],"windows":[)" + windows + "]" + more + "}";
}

BrowserWindow windowOf(const std::string& letters, std::size_t activeTab = 0) {
  BrowserWindow window{.tabs = {}, .activeTab = activeTab};
  for (const char letter : letters)
    window.tabs.push_back({.title = {letter}, .url = {letter, ':'}});
  return window;
}

BrowserSession read(const std::string& json) {
  auto session = firefoxState(json);
  EXPECT_TRUE(session) << session.error();
  return session.value_or(BrowserSession());
}

// The only tab that is open.
BrowserTab readTab(const std::string& json) {
  const BrowserSession session = read(state(window(json)));
  EXPECT_TRUE(session.size() == 1 && session[0].tabs.size() == 1) << json;
  return session.empty() || session[0].tabs.empty() ? BrowserTab() : session[0].tabs[0];
}

// Written by version 153 while a private window was in front. Cookies and some of the many keys are removed.
const std::string twoWindowsAndAPrivateOne =
    R"({"version":["sessionrestore",1],"windows":[{"tabs":[{"entries":[{"url":"http://127.0.0.1:8765/a.html",)"
    R"("title":"Page a – ü 😀","cacheKey":0,"ID":9,"docshellUUID":"{a8423f5e-d353-4101-936b-cff32e22efd0}",)"
    R"("resultPrincipalURI":null,"hasUserInteraction":false,"triggeringPrincipal_base64":"{\"3\":{}}",)"
    R"("docIdentifier":10,"transient":false}],"lastAccessed":1795279400846,"hidden":false,"searchMode":null,)"
    R"("userContextId":0,"attributes":{},"index":1,"requestedIndex":0,"image":null},{"entries":[{)"
    R"("url":"http://127.0.0.1:8765/b.html","title":"Page b – ü 😀","cacheKey":0,"ID":10}],)"
    R"("lastAccessed":1795279383348,"hidden":false,"searchMode":null,"userContextId":0,"attributes":{},"index":1,)"
    R"("userTypedValue":"","userTypedClear":0,"image":null}],"groups":[],"closedGroups":[],"selected":1,)"
    R"("_closedTabs":[],"_lastClosedTabGroupCount":-1,"lastClosedTabGroupId":null,"busy":false,"splitViews":[],)"
    R"("width":1152,"height":720,"sizemode":"maximized","sidebar":{"command":"","panelOpen":false},"zIndex":3},)"
    R"({"tabs":[{"entries":[{"url":"http://127.0.0.1:8765/c.html","title":"Page c – ü 😀","ID":14}],)"
    R"("lastAccessed":1795279419053,"hidden":false,"index":1,"requestedIndex":0,"image":null}],"groups":[],)"
    R"("selected":1,"workspaceID":"0","isAIWindow":false,"zIndex":2}],"selectedWindow":2,"_closedWindows":[],)"
    R"("savedGroups":[],"maxSplitViewId":0,"session":{"lastUpdate":1795279434057,"recentCrashes":0},"global":{}})";

TEST(FirefoxState, IsReadFromWhatFirefoxWrites) {
  const auto session = firefoxState(twoWindowsAndAPrivateOne);
  ASSERT_TRUE(session);
  EXPECT_THAT(*session,
              ElementsAre(BrowserWindow{.tabs = {{.title = "Page c – ü 😀", .url = "http://127.0.0.1:8765/c.html"}}},
                          BrowserWindow{.tabs = {{.title = "Page a – ü 😀", .url = "http://127.0.0.1:8765/a.html"},
                                                 {.title = "Page b – ü 😀", .url = "http://127.0.0.1:8765/b.html"}}}));
}

TEST(FirefoxState, HasTheTabsInTheirOrder) {
  EXPECT_THAT(read(state(window(tab("a") + "," + tab("b") + "," + tab("c"), R"(,"selected":2)"))),
              ElementsAre(windowOf("abc", 1)));
}

TEST(FirefoxState, HasTheWindowInFrontFirst) {
  const std::string windows = window(tab("a"), R"(,"zIndex":3)") + "," + window(tab("b"), R"(,"zIndex":1)") + "," +
                              window(tab("c"), R"(,"zIndex":2)");
  EXPECT_THAT(read(state(windows)), ElementsAre(windowOf("b"), windowOf("c"), windowOf("a")));
}

TEST(FirefoxState, HasTheSelectedWindowFirstWhereNoOrderIsKnown) {
  const std::string windows = window(tab("a")) + "," + window(tab("b")) + "," + window(tab("c"));
  EXPECT_THAT(read(state(windows, R"(,"selectedWindow":3)")), ElementsAre(windowOf("c"), windowOf("a"), windowOf("b")));
  for (const char* selected : {"", R"(,"selectedWindow":0)", R"(,"selectedWindow":9)", R"(,"selectedWindow":-1)"})
    EXPECT_THAT(read(state(windows, selected)), ElementsAre(windowOf("a"), windowOf("b"), windowOf("c"))) << selected;
}

TEST(FirefoxState, LooksPastEverythingElse) {
  const std::string more = R"(,"_closedWindows":[)" + window(tab("x")) + R"(],"savedGroups":[{"tabs":[)" + tab("y") +
                           R"(]}],"session":{"lastUpdate":1763700000000.5,"windows":[)" + window(tab("z")) +
                           R"(]},"cookies":[{"url":"cookie:","index":3}],"global":null)";
  const std::string inWindow = R"(,"_closedTabs":[{"state":)" + tab("v") + R"(}],"groups":[{"id":"1","tabs":[)" +
                               tab("w") + R"(]}],"extData":{"tabs":[)" + tab("u") + "]}";
  const std::string inTab = R"(,"storage":{"entries":[{"url":"no:"}]},"formdata":{"url":"no:","index":9})";
  EXPECT_THAT(read(state(window(tab("a", inTab), inWindow), more)), ElementsAre(windowOf("a")));
}

TEST(FirefoxState, LeavesHiddenAndPrivateTabsOut) {
  const std::string tabs = tab("a", R"(,"hidden":true)") + "," + tab("b", R"(,"hidden":false)") + "," +
                           tab("c", R"(,"isPrivate":true)") + "," + tab("d");
  EXPECT_THAT(read(state(window(tabs, R"(,"selected":4)"))), ElementsAre(windowOf("bd", 1)));
  EXPECT_THAT(read(state(window(tabs, R"(,"selected":3)"))), ElementsAre(windowOf("bd", 1))) << "the next one";
}

TEST(FirefoxState, ShowsTheLastTabWhereTheOneBehindItIsLeftOut) {
  EXPECT_THAT(read(state(window(tab("a") + "," + tab("b", R"(,"hidden":true)"), R"(,"selected":2)"))),
              ElementsAre(windowOf("a")));
}

TEST(FirefoxState, LeavesPrivateWindowsAndThoseWithoutTabsOut) {
  EXPECT_THAT(read(state(window(tab("a"), R"(,"isPrivate":true)") + "," + window("") + "," + window(tab("b")) + "," +
                         window(tab("c", R"(,"hidden":true)")) + ",{}")),
              ElementsAre(windowOf("b")));
}

TEST(FirefoxState, ShowsTheFirstTabWhereTheSelectedOneIsUnknown) {
  for (const char* selected : {"", R"(,"selected":0)", R"(,"selected":3)", R"(,"selected":-1)", R"(,"selected":null)",
                               R"(,"selected":"2")", R"(,"selected":18446744073709551615)", R"(,"selected":1e300)"})
    EXPECT_THAT(read(state(window(tab("a") + "," + tab("b"), selected))), ElementsAre(windowOf("ab", 0))) << selected;
}

TEST(FirefoxState, IsAtThePageToWhichTheUserWentBack) {
  const std::string pages = page("a", "a:") + "," + page("b", "b:") + "," + page("c", "c:");
  const auto titleAt = [&](const std::string& index) {
    return readTab(R"({"entries":[)" + pages + "]" + index + "}").title;
  };
  EXPECT_EQ(titleAt(R"(,"index":1)"), "a");
  EXPECT_EQ(titleAt(R"(,"index":2)"), "b");
  EXPECT_EQ(titleAt(R"(,"index":3)"), "c");
  EXPECT_EQ(titleAt(R"(,"index":4)"), "c");
  EXPECT_EQ(titleAt(R"(,"index":-1)"), "a");
  EXPECT_EQ(titleAt(R"(,"index":0)"), "c") << "none";
  EXPECT_EQ(titleAt(""), "c");
}

TEST(FirefoxState, TakesTheIndexAlsoFromInFrontOfThePages) {
  EXPECT_EQ(readTab(R"({"index":1,"entries":[{"url":"a:"},{"url":"b:"}]})").url, "a:");
}

TEST(FirefoxState, HasNoTitleWhereFirefoxKnowsNone) {
  EXPECT_EQ(readTab(R"({"entries":[{"url":"a:"}],"index":1})"), (BrowserTab{.title = "", .url = "a:"}));
  EXPECT_EQ(readTab(R"({"entries":[{"title":"A"}],"index":1})"), (BrowserTab{.title = "A", .url = ""}));
}

TEST(FirefoxState, HasTheAddressThatATabWithoutHistoryLoads) {
  EXPECT_EQ(readTab(R"({"entries":[],"userTypedValue":"a:","userTypedClear":1})").url, "a:");
  EXPECT_EQ(readTab(R"({"entries":[],"userTypedValue":"half an addr","userTypedClear":0})"), BrowserTab());
  EXPECT_EQ(readTab(R"({"entries":[{"url":"a:"}],"userTypedValue":"b:","userTypedClear":1})").url, "a:");
  EXPECT_EQ(readTab("{}"), BrowserTab());
}

TEST(FirefoxState, HasThePagesAddressInTheReadingView) {
  const auto addressOf = [](const std::string& url) {
    return readTab(R"({"entries":[{"url":")" + url + R"("}]})").url;
  };
  EXPECT_EQ(addressOf("about:reader?url=https%3A%2F%2Fexample.org%2F%3Fa%3D1%26b%3D%25"),
            "https://example.org/?a=1&b=%");
  EXPECT_EQ(addressOf("about:reader?url=https%3A%2F%2Fexample.org%2F&id=1"), "https://example.org/");
  EXPECT_EQ(addressOf("about:reader?url=%FFa"),
            "\xef\xbf\xbd"
            "a");
  for (const char* url : {"about:reader?url=%zz", "about:reader?url=a%00", "about:reader", "about:blank"})
    EXPECT_EQ(addressOf(url), url);
}

TEST(FirefoxState, KeepsTextsAsTheyAre) {
  EXPECT_EQ(readTab(R"({"entries":[{"url":"a:","title":" line\nbreak\t\"\\u0041\" \u00e9 \ud83d\ude00 é😀 "}]})").title,
            " line\nbreak\t\"\\u0041\" é 😀 é😀 ");
}

TEST(FirefoxState, ReplacesWhatIsNoCharacter) {
  const auto titleOf = [](const std::string& title) {
    return readTab(R"({"entries":[{"title":")" + title + R"("}]})").title;
  };
  const std::string replacement = "\xef\xbf\xbd";
  EXPECT_EQ(titleOf(R"(a\ud83d)"), "a" + replacement);
  EXPECT_EQ(titleOf(R"(\uDE00b)"), replacement + "b");
  EXPECT_EQ(titleOf(R"(\ude00\ud83d)"), replacement + replacement);
  EXPECT_EQ(titleOf(R"(\ud83d\ud83d\ude00)"), replacement + "😀");
  EXPECT_EQ(titleOf(R"(\ud83d\n)"), replacement + "\n");
  EXPECT_EQ(titleOf(R"(\\ud83d)"), R"(\ud83d)");
  EXPECT_EQ(titleOf("a\xff"
                    "b"),
            "a" + replacement + "b");
  EXPECT_EQ(titleOf(std::string("a\0b", 3)), "a" + replacement + "b");
  EXPECT_EQ(titleOf(R"(a\u0000b)"), "a" + replacement + "b");
  EXPECT_EQ(readTab(R"({"entries":[{"url":"a:\u0000b"}]})").url, "a:" + replacement + "b");
  EXPECT_EQ(readTab(R"({"userTypedValue":"a:\u0000b","userTypedClear":1})").url, "a:" + replacement + "b");
}

TEST(FirefoxState, IsReadWithAVersionThatIsKnownOrNone) {
  EXPECT_TRUE(firefoxState(R"({"version":["sessionrestore",0],"windows":[]})"));
  EXPECT_TRUE(firefoxState(R"({"windows":[]})"));
  EXPECT_FALSE(firefoxState(R"({"version":["sessionrestore",2],"windows":[]})"));
  EXPECT_FALSE(firefoxState(R"({"version":["somethingelse",1],"windows":[]})"));
}

TEST(FirefoxState, IsEmptyWithoutWindows) {
  EXPECT_THAT(read(state("")), ElementsAre());
}

TEST(FirefoxState, RefusesWhatIsNotASession) {
  for (const char* json : {"", " ", "null", "[]", "{}", "1", "\"windows\"", R"({"windows":{}})", R"([{"windows":[]}])",
                           R"({"windows":[]}})", R"({"windows":[],})", "\xff"})
    EXPECT_FALSE(firefoxState(json)) << json;
}

TEST(FirefoxState, LooksPastValuesOfOtherKinds) {
  EXPECT_THAT(
      read(state(R"(1,"a",null,[],[{"tabs":[)" + tab("x") + R"(]}],{"tabs":{"a":1}},{"tabs":[7,[],{"entries":3}]})")),
      ElementsAre(BrowserWindow{.tabs = {BrowserTab()}, .activeTab = 0}));
  EXPECT_EQ(readTab(R"({"entries":[1,"a",null,{"url":7,"title":{"url":"no:"}}],"hidden":"true","isPrivate":1})"),
            BrowserTab());
}

TEST(FirefoxState, RefusesATextThatWasCutOffAnywhere) {
  const std::string json = state(window(tab("a") + "," + tab("b"), R"(,"selected":2)"), R"(,"selectedWindow":1)");
  for (std::size_t length = 0; length < json.size(); ++length)
    EXPECT_FALSE(firefoxState(json.substr(0, length))) << length;
}

TEST(FirefoxState, IsReadOrRefusedWhicheverBitIsWrong) {
  const std::string json = state(window(tab("a") + "," + tab("b"), R"(,"selected":2)"), R"(,"selectedWindow":1)");
  for (std::size_t bit = 0; bit < json.size() * 8; ++bit) {
    std::string flipped = json;
    flipped[bit / 8] = static_cast<char>(flipped[bit / 8] ^ (1 << bit % 8));
    const auto session = firefoxState(flipped);
    if (!session) {
      EXPECT_FALSE(session.error().empty());
      continue;
    }
    for (const BrowserWindow& shown : *session)
      EXPECT_LT(shown.activeTab, shown.tabs.size()) << flipped;
  }
}

TEST(FirefoxState, RefusesEndlessNesting) {
  EXPECT_FALSE(firefoxState(std::string(10'000'000, '[')));
  EXPECT_FALSE(firefoxState(state(window(R"({"entries":[)" + std::string(10'000'000, '[')))));
  std::string frames;
  for (int depth = 0; depth < 1'000'000; ++depth)
    frames += R"({"children":[)";
  EXPECT_FALSE(firefoxState(R"({"windows":[{"tabs":[{"entries":[)" + frames));
}

TEST(FirefoxState, RefusesMoreThanAnybodyHasOpen) {
  std::string tabs = "{}";
  for (int count = 0; count < 1'000'000; ++count)
    tabs += ",{}";
  EXPECT_FALSE(firefoxState(state(window(tabs))));
}

TEST(FirefoxState, IsReadWithTensOfThousandsOfTabs) {
  std::string tabs = tab("a");
  for (int count = 1; count < 20'000; ++count)
    tabs += "," + tab("a");
  const BrowserSession session = read(state(window(tabs, R"(,"selected":20000)")));
  ASSERT_EQ(session.size(), 1);
  EXPECT_EQ(session[0].tabs.size(), 20'000);
  EXPECT_EQ(session[0].activeTab, 19'999);
}

TEST(FirefoxState, CutsTextsOfMegabytesButKnowsThatAnAddressIsTooLong) {
  const auto sizes = [](const std::string& text) {
    const BrowserTab tab = readTab(R"({"entries":[{"title":")" + text + R"(","url":")" + text + R"("}]})");
    EXPECT_EQ(tab.title, tab.url);
    return tab.url.size();
  };
  std::string escapes;
  for (int count = 0; count < 200'000; ++count)
    escapes += R"(\u0041)";
  EXPECT_EQ(sizes(escapes), longestAddress + 1);
  EXPECT_EQ(sizes(std::string(2'000'000, 'x')), 6 * (longestAddress + 1));
  EXPECT_EQ(sizes(std::string(longestAddress, 'x')), longestAddress);
}

TEST(FirefoxState, IsReadAfterTextsOfMegabytes) {
  const std::string page = R"({"title":")" + std::string(1'000'000, 'x') + R"(\"","url":"a:","image":0.)" +
                           std::string(1'000'000, '0') + "}";
  EXPECT_EQ(read(state(window(R"({"entries":[)" + page + "]}," + tab("b")))).at(0).tabs.at(1).url, "b:");
}

TEST(FirefoxState, TakesNoLongerForTextsFullOfEscapes) {
  std::string title;
  for (int count = 0; count < 500'000; ++count)
    title += R"(\ud83d)";
  EXPECT_EQ(readTab(R"({"entries":[{"title":")" + title + R"("}]})").title.size(), 3 * 65'537);
  EXPECT_EQ(readTab(R"({"entries":[{"title":")" + std::string(1'000'000, '\xff') + R"("}]})").title.size(),
            3 * 6 * 65'537);
}

}  // namespace

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "BrowserSessions/GNOMEWeb/GNOMEWebSession.h"
#include "Tests/BrowserSessions/BrowserSessionPrinting.h"

namespace {

using BrowserSessions::BrowserSession;
using BrowserSessions::BrowserTab;
using BrowserSessions::BrowserWindow;
using BrowserSessions::gnomeWebState;
using testing::ElementsAre;

// Written like version 43 does it, with everything else that there may be.
const std::string twoWindows = R"(<?xml version="1.0"?>
<session>
	 <window x="0" y="0" width="1024" height="768" is-maximized="0" is-fullscreen="0" active-tab="1">
	 	 <embed url="http://127.0.0.1:8766/a.html" title="Page a &#x2013; &#xFC; &#x1F600;" pinned="true" history="AgAA="/>
	 	 <embed url="about:overview" title="" loading="true"/>
	 </window>
	 <window width="800" height="600" active-tab="0">
	 	 <embed history="//8=" title="Größe &amp; Co." crashed="true" url="http://localhost:8000/?a=1&amp;b=&#x22;"/>
	 </window>
</session>
)";

BrowserSession read(const std::string& xml) {
  auto session = gnomeWebState(xml);
  EXPECT_TRUE(session) << session.error();
  return session.value_or(BrowserSession());
}

std::string embed(const std::string& letter) {
  return "<embed url='" + letter + ":' title='" + letter + "'/>";
}

std::string window(const std::string& tabs, const std::string& attributes = "") {
  return "<window " + attributes + ">" + tabs + "</window>";
}

BrowserWindow windowOf(const std::string& letters, std::size_t activeTab = 0) {
  BrowserWindow window{.tabs = {}, .activeTab = activeTab};
  for (const char letter : letters)
    window.tabs.push_back({.title = {letter}, .url = {letter, ':'}});
  return window;
}

TEST(GNOMEWebState, HasWindowsAndTabsInTheirOrder) {
  EXPECT_THAT(read(twoWindows),
              ElementsAre(BrowserWindow{.tabs = {{.title = "Page a – ü 😀", .url = "http://127.0.0.1:8766/a.html"},
                                                 {.title = "", .url = "about:overview"}},
                                        .activeTab = 1},
                          BrowserWindow{.tabs = {{.title = "Größe & Co.", .url = "http://localhost:8000/?a=1&b=\""}},
                                        .activeTab = 0}));
}

TEST(GNOMEWebState, KeepsTextsAsTheyAre) {
  EXPECT_EQ(read("<session>" + window("<embed title=' a&#x1;\x01&#10;b '/>") + "</session>").at(0).tabs.at(0).title,
            " a\x01\x01\nb ");
}

TEST(GNOMEWebState, CutsLongTitles) {
  const std::string embed = "<embed title='" + std::string(5000, 'x') + "' url='a:'/>";
  EXPECT_EQ(read("<session>" + window(embed) + "</session>").at(0).tabs.at(0).title, std::string(999, 'x') + "…");
}

TEST(GNOMEWebState, ShowsATabThatIsThere) {
  const auto activeTab = [](const std::string& attributes) {
    return read("<session>" + window(embed("a") + embed("b") + embed("c"), attributes) + "</session>").at(0).activeTab;
  };
  EXPECT_EQ(activeTab("active-tab='2'"), 2);
  EXPECT_EQ(activeTab("active-tab='3'"), 2);
  EXPECT_EQ(activeTab(""), 0);
  for (const char* number : {"-1", "", "x", "99999999999999999999999"})
    EXPECT_EQ(activeTab("active-tab='" + std::string(number) + "'"), 0) << number;
}

TEST(GNOMEWebState, LeavesWindowsWithoutTabsOut) {
  EXPECT_THAT(read("<session>" + window("") + window(embed("a")) + "<window/></session>"), ElementsAre(windowOf("a")));
  EXPECT_THAT(read("<session/>"), ElementsAre());
}

TEST(GNOMEWebState, LooksPastWhatItDoesNotKnow) {
  EXPECT_THAT(read("<session version='2'><!-- --><group><window>" + embed("x") + "</window>" + embed("y") + "</group>" +
                   window("text" + embed("a") + "<other>" + embed("z") + "</other>" + embed("b"), "active-tab='1'") +
                   embed("w") + "</session>"),
              ElementsAre(windowOf("ab", 1)));
}

TEST(GNOMEWebState, HasEmptyTextsIfAttributesAreMissing) {
  EXPECT_THAT(read("<session>" + window("<embed/>") + "</session>"),
              ElementsAre(BrowserWindow{.tabs = {BrowserTab()}, .activeTab = 0}));
}

TEST(GNOMEWebState, ReplacesBytesThatAreNotUTF8) {
  EXPECT_EQ(read("<session>" + window("<embed title='a\xff\xc3'/>") + "</session>").at(0).tabs.at(0).title,
            "a\xef\xbf\xbd\xef\xbf\xbd");
}

TEST(GNOMEWebState, RefusesWhatIsNotASession) {
  for (const char* xml :
       {"", " ", "text", "<session>", "<session></window>", "<window></window>", "<html><window/></html>",
        "<session/><", "<session a=b/>", "<session>&unknown;</session>", "\xff"})
    EXPECT_FALSE(gnomeWebState(xml)) << xml;
}

TEST(GNOMEWebState, RefusesATextThatWasCutOffAnywhere) {
  const std::size_t end = twoWindows.rfind('>') + 1;
  for (std::size_t length = 0; length < end; ++length)
    EXPECT_FALSE(gnomeWebState(twoWindows.substr(0, length))) << length;
}

TEST(GNOMEWebState, IsReadOrRefusedWhicheverBitIsWrong) {
  for (std::size_t bit = 0; bit < twoWindows.size() * 8; ++bit) {
    std::string flipped = twoWindows;
    flipped[bit / 8] = static_cast<char>(flipped[bit / 8] ^ (1 << bit % 8));
    const auto session = gnomeWebState(flipped);
    if (!session) {
      EXPECT_FALSE(session.error().empty());
      continue;
    }
    for (const BrowserWindow& shown : *session)
      EXPECT_LT(shown.activeTab, shown.tabs.size()) << flipped;
  }
}

std::string repeated(std::string_view text, int count) {
  std::string all;
  for (int round = 0; round < count; ++round)
    all += text;
  return all;
}

TEST(GNOMEWebState, RefusesEndlessNesting) {
  EXPECT_FALSE(gnomeWebState("<session>" + repeated("<window>", 1'000'000)));
}

TEST(GNOMEWebState, RefusesMoreThanAnybodyHasOpen) {
  EXPECT_FALSE(gnomeWebState("<session><window>" + repeated("<embed/>", 200'000) + "</window></session>"));
  EXPECT_FALSE(gnomeWebState("<session>" + repeated("<window/>", 200'000) + "</session>"));
}

TEST(GNOMEWebState, IsReadWithTensOfThousandsOfTabs) {
  const BrowserSession session =
      read("<session>" + window(repeated(embed("a"), 20'000), "active-tab='19999'") + "</session>");
  ASSERT_EQ(session.size(), 1);
  EXPECT_EQ(session[0].tabs.size(), 20'000);
  EXPECT_EQ(session[0].activeTab, 19'999);
}

TEST(GNOMEWebState, TakesNoLongerForLongTexts) {
  const BrowserSession session =
      read("<session>" + window("<embed url='" + repeated("&amp;", 1'000'000) + "'/>") + "</session>");
  EXPECT_EQ(session.at(0).tabs.at(0).url.size(), 1'000'000);
}

TEST(GNOMEWebState, RefusesEndlessAttributes) {
  EXPECT_FALSE(gnomeWebState("<session><embed" + repeated(" a=''", 1'000'000) + "/></session>"));
}

}  // namespace

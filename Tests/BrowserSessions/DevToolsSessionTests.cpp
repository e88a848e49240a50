#include <chrono>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <unistd.h>

#include "BrowserSessions/Chromium/DevTools/DevToolsSession.h"
#include "Tests/BrowserSessions/BrowserSessionPrinting.h"
#include "Tests/BrowserSessions/FakeDevTools.h"

namespace BrowserSessions {

static void PrintTo(const DevToolsTab& tab, std::ostream* stream) {
  *stream << "tab " << tab.index << (tab.isShown ? ", shown," : "") << " of window " << tab.window << " of "
          << tab.profile << ": ";
  PrintTo(tab.page, stream);
}

static void PrintTo(const DevToolsSession& session, std::ostream* stream) {
  *stream << "main profile " << session.mainProfile << ", " << testing::PrintToString(session.tabs);
}

namespace {

using nlohmann::json;
using Messages = FakeDevTools::Messages;

template <typename... Arguments>
json tab(const Arguments&... arguments) {
  return FakeDevTools::tab(arguments...);
}

class DevToolsSessionTest : public testing::Test {
 protected:
  [[nodiscard]] std::optional<DevToolsSession> toldBy(const FakeDevTools& devTools) const {
    devTools.noteIn(userData_);
    return devToolsSession(userData_.path(), getpid()).value_or(std::nullopt);
  }

  TestSupport::TemporaryFolder userData_;
};

// Answers like a browser with one tab, except for one method.
FakeDevTools::Answer except(const std::string& method, const std::function<std::string(const json& id)>& answer) {
  return [=](const json& call) {
    if (call["method"] == method)
      return Messages{answer(call["id"])};
    const std::vector<json> tabs = {tab("A", "a", 1, 0)};
    return Messages{json{{"id", call["id"]}, {"result", FakeDevTools::result(call, tabs, "main")}}.dump()};
  };
}

std::string answer(const json& id, const json& result) {
  return json{{"id", id}, {"result", result}}.dump();
}

TEST_F(DevToolsSessionTest, HasTheTabsWithTheirPlaces) {
  const DevToolsSession expected = {
      .tabs = {{.window = 7, .index = 1, .isShown = true, .profile = "main", .page = {"Tür", "https://b.example/"}},
               {.window = 3, .index = 0, .isShown = false, .profile = "other", .page = {"", "about:blank"}}},
      .mainProfile = "main"};
  EXPECT_EQ(toldBy(FakeDevTools::withTabs(
                {tab("Tür", "https://b.example/", 7, 1, true), tab("", "about:blank", 3, 0, false, "other")})),
            expected);
}

TEST_F(DevToolsSessionTest, HasNoTabsWhereNoneAreOpen) {
  EXPECT_EQ(toldBy(FakeDevTools::withTabs({})), (DevToolsSession{.tabs = {}, .mainProfile = "main"}));
}

TEST_F(DevToolsSessionTest, AsksForAnyNumberOfWindows) {
  std::vector<json> tabs;
  for (int index = 0; index < 300; ++index)
    tabs.push_back(tab("", std::to_string(index), index % 3, index));
  const auto session = toldBy(FakeDevTools::withTabs(tabs));
  ASSERT_TRUE(session);
  ASSERT_EQ(session->tabs.size(), 300U);
  for (int index = 0; index < 300; ++index) {
    EXPECT_EQ(session->tabs[static_cast<std::size_t>(index)].window, index % 3);
    EXPECT_EQ(session->tabs[static_cast<std::size_t>(index)].page.url, std::to_string(index));
  }
}

TEST_F(DevToolsSessionTest, LeavesOutWhatIsInNoTabStripOrInNoWindow) {
  json devTools = tab("DevTools", "devtools://", 1, 0);
  devTools.erase("embedderData");
  json closed = tab("Closed", "closed", 1, 1);
  closed["window"] = nullptr;
  const auto session = toldBy(FakeDevTools::withTabs({devTools, closed, tab("A", "a", 1, 0)}));
  ASSERT_TRUE(session);
  ASSERT_EQ(session->tabs.size(), 1U);
  EXPECT_EQ(session->tabs.front().page.title, "A");
}

TEST_F(DevToolsSessionTest, IsNoneWhereTheBrowserDoesNotTellTheOrderOfTheTabs) {
  json older = tab("A", "a", 1, 0);
  older.erase("embedderData");
  EXPECT_EQ(toldBy(FakeDevTools::withTabs({older})), std::nullopt);
}

TEST_F(DevToolsSessionTest, TakesAnswersInAnyOrderAmongOtherMessages) {
  const std::vector<json> tabs = {tab("A", "a", 1, 0), tab("B", "b", 2, 0)};
  std::string first;
  const auto session = toldBy(FakeDevTools([&](const json& call) {
    std::string message = answer(call["id"], FakeDevTools::result(call, tabs, "main"));
    if (call["id"] != 0)
      return Messages{R"({"id": "0"})", "no JSON", R"({"id": 99})", R"({"id": -1})", message, first};
    first = std::move(message);
    return Messages{R"({"method": "Target.targetCreated"})"};
  }));
  ASSERT_TRUE(session);
  ASSERT_EQ(session->tabs.size(), 2U);
  EXPECT_EQ(session->tabs[0].window, 1);
  EXPECT_EQ(session->tabs[1].window, 2);
}

TEST_F(DevToolsSessionTest, CountsAnAnswerOnce) {
  const auto twice = [](const json& call) {
    const std::vector<json> tabs = {tab("A", "a", 1, 0)};
    const std::string message = answer(call["id"], FakeDevTools::result(call, tabs, "main"));
    return Messages(call["id"] == 0 ? 2 : 1, message);
  };
  EXPECT_TRUE(toldBy(FakeDevTools(twice)));
}

TEST_F(DevToolsSessionTest, IsNoneWhereItIsToldSomethingElse) {
  using Wrong = std::pair<const char*, std::function<std::string(const json& id)>>;
  const std::vector<Wrong> targets = {
      {"an error", [](const json& id) { return json{{"id", id}, {"error", {{"code", -32601}}}}.dump(); }},
      {"a number", [](const json& id) { return answer(id, 7); }},
      {"an object for a list", [](const json& id) { return answer(id, {{"targetInfos", json::object()}}); }},
      {"tabs that are none", [](const json& id) { return answer(id, {{"targetInfos", {1, "a", nullptr, {2}}}}); }},
      {"places that are none",
       [](const json& id) {
         json tab = FakeDevTools::tab("A", "a", 1, 0);
         tab["embedderData"] = {{"tabStripIndex", 1.5}};
         return answer(id, {{"targetInfos", json::array({tab})}});
       }},
  };
  for (const auto& [what, wrong] : targets)
    EXPECT_EQ(toldBy(FakeDevTools(except("Target.getTargets", wrong))), std::nullopt) << what;
}

TEST_F(DevToolsSessionTest, TakesFieldsOfAnyKind) {
  json odd = tab("A", "a", 1, 0);
  odd["title"] = 7;
  odd["url"] = json::array({1});
  odd["browserContextId"] = nullptr;
  odd["embedderData"]["tabActive"] = "yes";
  const auto session = toldBy(FakeDevTools::withTabs({odd}));
  ASSERT_TRUE(session);
  EXPECT_EQ(session->tabs, (std::vector<DevToolsTab>{{.window = 1}}));
}

TEST_F(DevToolsSessionTest, TakesFieldsOfAnyDepth) {
  constexpr std::size_t depth = 1'000'000;
  const std::string nested = std::string(depth, '[') + std::string(depth, ']');
  const auto targets = [&](const json& id) {
    return R"({"id":)" + id.dump() + R"(,"result":{"targetInfos":[{"targetId":)" + nested + R"(,"title":)" + nested +
           R"(,"embedderData":{"tabStripIndex":0}}]}})";
  };
  EXPECT_EQ(toldBy(FakeDevTools(except("Target.getTargets", targets))),
            (DevToolsSession{.tabs = {}, .mainProfile = "main"}));
}

TEST_F(DevToolsSessionTest, CutsLongTitles) {
  const auto session = toldBy(FakeDevTools::withTabs({tab(std::string(5000, 'x'), "a", 1, 0)}));
  ASSERT_TRUE(session);
  EXPECT_EQ(session->tabs.at(0).page.title, std::string(999, 'x') + "…");
}

// The only test that waits for a deadline.
TEST_F(DevToolsSessionTest, IsWaitedForHalfASecond) {
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(toldBy(FakeDevTools([](const json&) { return Messages(); })), std::nullopt);
  const auto time = std::chrono::steady_clock::now() - start;
  EXPECT_GE(time, std::chrono::milliseconds(450));
  EXPECT_LT(time, std::chrono::seconds(10));
}

TEST_F(DevToolsSessionTest, IsNoneWhereNobodyAnswers) {
  EXPECT_EQ(devToolsSession(userData_.path(), getpid()).value(), std::nullopt) << "no note";
  userData_.write("DevToolsActivePort", std::to_string(deadPort()) + "\n" + FakeDevTools::path);
  EXPECT_EQ(devToolsSession(userData_.path(), getpid()).value(), std::nullopt) << "crashed";
}

}  // namespace
}  // namespace BrowserSessions

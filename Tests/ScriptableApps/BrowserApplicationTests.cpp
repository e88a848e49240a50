#include <optional>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "AppleScript/Script.h"
#include "ScriptableApps/Browsers/GoogleChrome.h"
#include "ScriptableApps/Browsers/Safari.h"

namespace {

using BrowserSessions::BrowserSession;
using BrowserSessions::SessionReading;
using ScriptableApps::RunningBrowser;

using Reading = std::expected<SessionReading, std::string>;

/// A browser application that finds the test's browsers instead of the running ones.
template <typename Application>
class StandIn : public Application {
 public:
  explicit StandIn(std::vector<Reading> readings) : readings_(std::move(readings)) {}

 private:
  [[nodiscard]] std::vector<RunningBrowser> runningBrowsers(const std::vector<pid_t>& /*processes*/) const override {
    std::vector<RunningBrowser> browsers;
    for (const Reading& reading : readings_)
      browsers.push_back({std::nullopt, [reading](const std::vector<std::string>& /*titles*/) { return reading; }});
    return browsers;
  }

  std::vector<Reading> readings_;
};

class OnlyApplication : public AppleScript::ApplicationDirectory {
 public:
  explicit OnlyApplication(AppleScript::Application& application) : application_(application) {}
  AppleScript::Application* find(std::string_view name) override {
    return name == application_.name() ? &application_ : nullptr;
  }

 private:
  AppleScript::Application& application_;
};

/// What a script yields that sends this statement to the application, or the error.
template <typename Application>
std::string answer(std::vector<Reading> readings, const std::string& statement) {
  StandIn<Application> application(std::move(readings));
  OnlyApplication directory(application);
  const auto script = AppleScript::Script::compile(
      "tell application \"" + std::string(application.name()) + "\" to " + statement, directory);
  if (!script)
    return script.error().message;
  const auto result = script->run();
  if (!result)
    return std::to_string(static_cast<int>(result.error().number)) + ": " + result.error().message;
  const std::optional<AppleScript::Value>& value = *result;
  return value ? value->stringValue().value_or("no text") : "no value";
}

Reading reading(BrowserSession session, std::vector<std::string> problems = {}) {
  return SessionReading{.session = std::move(session), .problems = std::move(problems)};
}

std::string ofChrome(const std::string& statement, BrowserSession session) {
  return answer<ScriptableApps::GoogleChrome>({reading(std::move(session))}, statement);
}

std::string ofSafari(const std::string& statement, BrowserSession session) {
  return answer<ScriptableApps::Safari>({reading(std::move(session))}, statement);
}

const BrowserSession twoWindows = {
    {.tabs = {{"One", "https://example.com/1"}, {"Two", "https://example.com/2"}}, .activeTab = 1},
    {.tabs = {{"Three", "https://example.com/3"}}, .activeTab = 0}};

TEST(GoogleChrome, HasTheTabsOfEachWindowByTitleAndAddress) {
  EXPECT_EQ(ofChrome("get title of every tab of window 1", twoWindows), "OneTwo");
  EXPECT_EQ(ofChrome("get URL of tab 1 of window 2", twoWindows), "https://example.com/3");
  EXPECT_EQ(ofChrome("count windows", twoWindows), "2");
  EXPECT_EQ(ofChrome("number of tabs of window 1", twoWindows), "2");
}

TEST(GoogleChrome, HasTheActiveTabOfAWindow) {
  EXPECT_EQ(ofChrome("get active tab index of window 1", twoWindows), "2");
  EXPECT_EQ(ofChrome("get URL of active tab of window 1", twoWindows), "https://example.com/2");
  EXPECT_EQ(ofChrome("get title of window 1", twoWindows), "Two");
  EXPECT_EQ(ofChrome("get name of window 2", twoWindows), "Three");
  EXPECT_EQ(ofChrome("get mode of window 1", twoWindows), "normal");
  EXPECT_EQ(ofChrome("get (active tab of window 1) is (tab 2 of window 1)", twoWindows), "true");
}

TEST(Safari, HasTheTabsOfEachWindowByNameAndAddress) {
  EXPECT_EQ(ofSafari("get name of every tab of window 1", twoWindows), "OneTwo");
  EXPECT_EQ(ofSafari("get URL of tab 1 of window 2", twoWindows), "https://example.com/3");
  EXPECT_EQ(ofSafari("count windows", twoWindows), "2");
}

TEST(Safari, HasTheCurrentTabOfAWindow) {
  EXPECT_EQ(ofSafari("get name of current tab of window 1", twoWindows), "Two");
  EXPECT_EQ(ofSafari("get name of window 2", twoWindows), "Three");
}

TEST(BrowserApplication, HasNoActiveTabIfThereIsNone) {
  EXPECT_EQ(ofChrome("get active tab index of window 1", {{.tabs = {}, .activeTab = 3}}), "no text");
  EXPECT_EQ(ofSafari("get current tab of window 1", {{.tabs = {}, .activeTab = 0}}), "no text");
}

TEST(BrowserApplication, HandsOverOneLineEach) {
  const BrowserSession session = {{.tabs = {{"a\nb\r\nc\xE2\x80\xA8"
                                             "d\te",
                                             "https://example.com/a\nb"}}}};
  EXPECT_EQ(ofChrome("get title of tab 1 of window 1", session), "a b c d e");
  EXPECT_EQ(ofSafari("get URL of tab 1 of window 1", session), "https://example.com/a%0Ab");
}

TEST(BrowserApplication, HasAnAddressForEveryTab) {
  EXPECT_EQ(ofSafari("get URL of tab 1 of window 1", {{.tabs = {{"New Tab", ""}}}}), "about:blank");
}

TEST(BrowserApplication, HasANameForEveryTab) {
  EXPECT_EQ(ofChrome("get title of tab 1 of window 1", {{.tabs = {{"", "https://example.com/a b"}}}}),
            "https://example.com/a%20b");
  EXPECT_EQ(ofSafari("get name of tab 1 of window 1", {{.tabs = {{"\x01", ""}}}}), "about:blank");
}

TEST(BrowserApplication, TakesAllBrowsersTogether) {
  EXPECT_EQ(answer<ScriptableApps::Safari>({reading({{.tabs = {{"One", ""}}}}), reading({{.tabs = {{"Two", ""}}}})},
                                           "get name of every window"),
            "OneTwo");
}

TEST(BrowserApplication, IsNotRunningIfNoBrowserIs) {
  EXPECT_EQ(answer<ScriptableApps::GoogleChrome>({}, "count windows"),
            "-600: Google Chrome got an error: Application isn’t running.");
  EXPECT_EQ(answer<ScriptableApps::Safari>({}, "count windows"),
            "-600: Safari got an error: Application isn’t running.");
}

TEST(BrowserApplication, FailsIfNothingCouldBeRead) {
  EXPECT_EQ(answer<ScriptableApps::Safari>({std::unexpected("It is damaged."), std::unexpected("So is this.")},
                                           "count windows"),
            "-2700: Safari got an error: It is damaged.");
}

TEST(BrowserApplication, LogsWhatCouldNotBeRead) {
  testing::internal::CaptureStderr();
  EXPECT_EQ(answer<ScriptableApps::Safari>(
                {std::unexpected("One is damaged."), reading({{.tabs = {{"Two", ""}}}}, {"A part is missing."})},
                "get name of every window"),
            "Two");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "One is damaged.\nA part is missing.\n");
}

TEST(BrowserApplication, CutsTitles) {
  const std::string cut = std::string(999, 'x') + "…";
  EXPECT_EQ(ofChrome("get title of tab 1 of window 1", {{.tabs = {{std::string(5000, 'x'), "a:"}}}}), cut);
  EXPECT_EQ(ofSafari("get name of tab 1 of window 1", {{.tabs = {{"", std::string(5000, 'x')}}}}), cut);
}

TEST(BrowserApplication, LeavesTabsWithLongAddressesOutAndLogsTheirNumber) {
  const std::string tooLong((64 << 10) + 1, 'x');
  testing::internal::CaptureStderr();
  EXPECT_EQ(answer<ScriptableApps::Safari>(
                {reading({{.tabs = {{"One", tooLong}, {"Two", "a:"}}}}), reading({{.tabs = {{"Three", tooLong}}}})},
                "get name of every tab of every window"),
            "Two");
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "Tabs left out because their addresses are longer than 65536 bytes: 2.\n");
}

TEST(BrowserApplication, RunsIfTheBrowserHasNoWindow) {
  EXPECT_EQ(ofChrome("count windows", {}), "0");
}

}  // namespace

// The native messaging host between a session bus and an extension that a test plays.

#include <chrono>
#include <csignal>
#include <future>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "BrowserSessions/Companion/CompanionAnswer.h"
#include "BrowserSessions/Companion/Companions.h"
#include "DesktopSupport/Bus/BusDaemon.h"
#include "DesktopSupport/Bus/SessionBus.h"
#include "Tests/BrowserCompanion/ExtensionEnd.h"
#include "Tests/Support/GIOHandles.h"
#include "Tests/Support/Patience.h"

namespace {

using BrowserSessions::CompanionAnswer;
using BrowserSessions::CompanionWindow;
using DesktopSupport::BusAnswer;
using DesktopSupport::SessionBus;
using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;

const json greeting = {{"version", 1}};

std::string tab(const std::string& title, const std::string& url, bool isActive = false) {
  return (isActive ? "a\n" : "\n") + title + '\n' + url + '\n';
}

json window(int id, const std::string& tabs = "") {
  return {{"id", id}, {"type", "normal"}, {"focused", false}, {"tabs", tabs}};
}

json answer(const json& request, const std::vector<json>& windows, bool isLast = true) {
  return {{"answer", request["list"]}, {"windows", windows}, {"isLast", isLast}};
}

/// A call of List that is under way.
std::future<BusAnswer> list(const ExtensionEnd& extension) {
  return std::async(std::launch::async, [name = extension.name()] {
    const auto bus = SessionBus::connect().value();
    return bus.call({name, BrowserSessions::companionPath, BrowserSessions::companionInterface, "List"}, nullptr,
                    nullptr, TestSupport::patience);
  });
}

CompanionAnswer told(std::future<BusAnswer>& call) {
  const auto reply = call.get();
  return reply ? BrowserSessions::companionAnswerIn(reply->get()).value()
               : CompanionAnswer{.extension = reply.error().message};
}

std::string errorOf(std::future<BusAnswer>& call) {
  const auto reply = call.get();
  return reply ? "none" : reply.error().name + ": " + reply.error().message;
}

class Companion : public testing::Test {
 protected:
  Companion() { extension_.awaitName(); }

  ExtensionEnd extension_;
};

TEST_F(Companion, AnswersWhatTheExtensionTells) {
  extension_.send(greeting);
  auto call = list(extension_);
  const json request = extension_.receive();
  extension_.send(answer(request, {window(3, tab("A", "a") + tab("Größe", "b", true)), window(1)}));
  EXPECT_EQ(
      told(call),
      (CompanionAnswer{.browser = static_cast<std::uint32_t>(getpid()),
                       .extension = "chrome-extension://id/",
                       .windows = {{.number = 3, .type = "normal", .isFocused = false, .tabs = "\nA\na\na\nGröße\nb\n"},
                                   {.number = 1, .type = "normal", .isFocused = false}}}));
}

TEST_F(Companion, PutsDividedAnswersTogether) {
  extension_.send(greeting);
  auto call = list(extension_);
  const json request = extension_.receive();
  extension_.send(answer(request, {window(1, tab("A", "a")), window(2, tab("B", "b"))}, false));
  extension_.send(answer(request, {}, false));
  extension_.send(answer(request, {window(2, tab("C", "c")), window(3, tab("D", "d"))}, false));
  extension_.send(answer(request, {window(3)}));
  const auto whole = told(call);
  std::vector<std::string> tabs;
  for (const CompanionWindow& each : whole.windows)
    for (const auto& one : BrowserSessions::tabsOf(each))
      tabs.push_back(std::to_string(each.number) + one.title);
  EXPECT_THAT(tabs, ElementsAre("1A", "2B", "2C", "3D"));
  EXPECT_EQ(whole.windows.size(), 3U);
}

TEST_F(Companion, AsksTheExtensionForEachCaller) {
  extension_.send(greeting);
  auto first = list(extension_);
  const json firstRequest = extension_.receive();
  auto second = list(extension_);
  const json secondRequest = extension_.receive();
  EXPECT_NE(firstRequest, secondRequest);
  // In another order, and in turns.
  extension_.send(answer(secondRequest, {window(1, tab("New", "n"))}, false));
  extension_.send(answer(firstRequest, {window(1, tab("Old", "o"))}));
  extension_.send(answer(secondRequest, {window(1, tab("Newer", "n"))}));
  EXPECT_THAT(told(first).windows, ElementsAre(testing::Field(&CompanionWindow::tabs, tab("Old", "o"))));
  EXPECT_THAT(told(second).windows,
              ElementsAre(testing::Field(&CompanionWindow::tabs, tab("New", "n") + tab("Newer", "n"))));
}

TEST_F(Companion, AsksOnceAfterTheGreeting) {
  const auto bus = SessionBus::connect().value();
  bus.callLater({extension_.name(), BrowserSessions::companionPath, BrowserSessions::companionInterface, "List"},
                nullptr, TestSupport::patience, DesktopSupport::Activation::never, [](const auto&) {});
  // When this is answered, the call has arrived.
  EXPECT_TRUE(
      bus.call({extension_.name(), "/", "org.freedesktop.DBus.Peer", "Ping"}, nullptr, nullptr, TestSupport::patience));
  extension_.send(greeting);
  extension_.send(answer(extension_.receive(), {}));
  extension_.close();
  EXPECT_EQ(extension_.receive(), json());
}

TEST_F(Companion, SaysWhatTheBrowserCouldNotDo) {
  extension_.send(greeting);
  auto call = list(extension_);
  const json request = extension_.receive();
  extension_.send(json{{"answer", request["list"]}, {"failed", "No windows"}});
  EXPECT_EQ(errorOf(call), "org.freedesktop.DBus.Error.Failed: No windows");
}

TEST_F(Companion, GivesTheExtensionSomeSeconds) {
  extension_.send(greeting);
  auto silent = list(extension_);
  const json request = extension_.receive();
  EXPECT_EQ(errorOf(silent), "org.freedesktop.DBus.Error.Timeout: The browser does not answer.");
  // An answer that comes too late is ignored, and later callers are served.
  extension_.send(answer(request, {window(1, tab("Late", "l"))}));
  auto call = list(extension_);
  extension_.send(answer(extension_.receive(), {window(2)}));
  EXPECT_EQ(told(call).windows.at(0).number, 2);
}

TEST_F(Companion, HasALimitForAnAnswer) {
  extension_.send(greeting);
  auto call = list(extension_);
  const json request = extension_.receive();
  const std::string part = answer(request, {window(1, tab("Long", std::string(4 << 20, 'x')))}, false).dump();
  for (int i = 0; i < 12; ++i)
    extension_.send(part);
  EXPECT_EQ(errorOf(call), "org.freedesktop.DBus.Error.LimitsExceeded: The browser has too many tabs.");
  auto next = list(extension_);
  extension_.send(answer(extension_.receive(), {}));
  EXPECT_EQ(told(next).windows, std::vector<CompanionWindow>());
}

TEST_F(Companion, TellsOfManyTabs) {
  constexpr int parts = 100;
  extension_.send(greeting);
  auto call = list(extension_);
  const json request = extension_.receive();
  std::string rows;
  for (int i = 0; i < 1000; ++i)
    rows += tab("A title of usual length", "https://example.com/some/page?with=query");
  const std::string part = answer(request, {window(1, rows)}, false).dump();
  for (int i = 0; i < parts; ++i)
    extension_.send(part);
  extension_.send(answer(request, {}));
  EXPECT_EQ(told(call).windows.at(0).tabs.size(), parts * rows.size());
}

TEST_F(Companion, RefusesCallersBeyondTheLimit) {
  extension_.send(greeting);
  std::vector<std::future<BusAnswer>> calls;
  std::vector<json> requests;
  for (int i = 0; i < 64; ++i) {
    calls.push_back(list(extension_));
    requests.push_back(extension_.receive());
  }
  auto tooMany = list(extension_);
  EXPECT_EQ(errorOf(tooMany), "org.freedesktop.DBus.Error.LimitsExceeded: Too many callers wait for the browser.");
  for (const json& request : requests)
    extension_.send(answer(request, {}));
  for (auto& call : calls)
    EXPECT_TRUE(call.get());
}

TEST_F(Companion, EndsWithItsPort) {
  extension_.send(greeting);
  auto call = list(extension_);
  extension_.receive();
  extension_.close();
  EXPECT_EQ(errorOf(call), "org.freedesktop.DBus.Error.NoReply: The browser has closed the port.");
  EXPECT_EQ(extension_.wait(), 0);
  TestSupport::awaitNoOwner(extension_.name());
}

TEST_F(Companion, EndsIfThePortClosesInTheMiddleOfAMessage) {
  extension_.sendBytes(std::string("\x10\0\0\0{\"vers", 10));
  extension_.close();
  EXPECT_EQ(extension_.wait(), 0);
}

TEST_F(Companion, RefusesAnExtensionOfAnotherVersion) {
  extension_.send(json{{"version", 2}});
  const std::string reason =
      "The extension speaks version 2, and gleanery-tabs version 1. Install both from the same release.";
  EXPECT_EQ(extension_.receive(), (json{{"refused", reason}}));
  EXPECT_EQ(extension_.wait(), 1);
  EXPECT_EQ(extension_.errors(), "gleanery-tabs: " + reason + '\n');
}

TEST_F(Companion, RefusesMalformedMessages) {
  extension_.send(std::string("{"));
  EXPECT_EQ(extension_.receive(), (json{{"refused", "The extension sends a malformed message."}}));
  EXPECT_EQ(extension_.wait(), 1);
}

TEST_F(Companion, RefusesMessagesThatAreTooLong) {
  extension_.sendBytes("\xFF\xFF\xFF\xFF");
  EXPECT_EQ(extension_.receive(), (json{{"refused", "The browser sends a message of 4294967295 bytes."}}));
  EXPECT_EQ(extension_.wait(), 1);
}

TEST_F(Companion, IgnoresAnswersThatNobodyAskedFor) {
  extension_.send(answer({{"list", 7}}, {window(1)}));
  extension_.send(json{{"answer", 8}, {"failed", "x"}});
  extension_.send(greeting);
  extension_.send(greeting);
  auto call = list(extension_);
  extension_.send(answer(extension_.receive(), {}));
  EXPECT_EQ(told(call).windows, std::vector<CompanionWindow>());
}

TEST(CompanionProgram, TakesFirefoxsArgumentsToo) {
  ExtensionEnd extension({"/usr/lib/mozilla/native-messaging-hosts/x.json", "gleanery@quillary.com"});
  extension.awaitName();
  extension.send(greeting);
  auto call = list(extension);
  extension.send(answer(extension.receive(), {}));
  EXPECT_EQ(told(call).extension, "gleanery@quillary.com");
}

TEST(CompanionProgram, IsStartedByBrowsersAlone) {
  for (const std::vector<std::string>& arguments : {std::vector<std::string>(), {"--hepl"}}) {
    ExtensionEnd program(arguments);
    EXPECT_EQ(program.errors(), "gleanery-tabs: it is started by a browser (see --help)\n");
    EXPECT_EQ(program.wait(), 2);
  }
  ExtensionEnd help({"--help"});
  EXPECT_THAT(help.output(), HasSubstr("Usage: gleanery-tabs"));
  EXPECT_EQ(help.wait(), 0);
  ExtensionEnd version({"--version"});
  EXPECT_THAT(version.output(), testing::MatchesRegex("gleanery-tabs [0-9.]+\n"));
}

}  // namespace

#include <chrono>
#include <functional>
#include <map>
#include <string>

#include <gtest/gtest.h>
#include <unistd.h>

#include "BrowserSessions/Chromium/DevTools/DevToolsPort.h"
#include "DesktopSupport/System/FileDescriptor.h"
#include "Tests/BrowserSessions/FakeDevTools.h"
#include "Tests/BrowserSessions/OtherProcess.h"

namespace BrowserSessions {

static void PrintTo(const DevToolsPort& devTools, std::ostream* stream) {
  *stream << "port " << devTools.port << ", path " << devTools.path;
}

namespace {

using namespace std::chrono_literals;

WebSocket::Deadline farAway() {
  return std::chrono::steady_clock::now() + 60s;
}

std::optional<DevToolsPort> noted(const std::string& note) {
  const TestSupport::TemporaryFolder userData;
  userData.write("DevToolsActivePort", note);
  return devToolsPort(userData.path());
}

// Whether this process is taken for the browser that wrote this note.
bool isConnected(const DevToolsPort& devTools, WebSocket::Deadline deadline = farAway()) {
  const auto socket = connectDevTools(devTools, getpid(), deadline);
  EXPECT_TRUE(socket) << socket.error();
  return socket && socket->has_value();
}

// Whether a server with this answer to the question for the browser's version is taken for the browser.
bool isBrowser(const std::string& answer) {
  const FakeServer server([&](const FakeServer::Connection& client) {
    const std::string request = client.readTo("\r\n\r\n");
    if (request.starts_with("GET /json/version ")) {
      client.write(answer);
      client.awaitEnd();
    } else {
      client.write("HTTP/1.1 101 WebSocket\r\nSec-WebSocket-Accept: " + FakeWebSocket::acceptance(request) +
                   "\r\n\r\n");
      client.awaitEnd();
    }
  });
  return isConnected({server.port(), FakeDevTools::path});
}

std::string success(const std::string& body) {
  return "HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
}

std::string about(const std::string& path) {
  return R"({"webSocketDebuggerUrl": "ws://127.0.0.1:1)" + path + "\"}";
}

TEST(DevToolsPort, IsWhatTheBrowserHasNoted) {
  const DevToolsPort expected = {38537, "/devtools/browser/49b1f915-e9e6-46ac-8223-b25ca43ca790"};
  EXPECT_EQ(noted("38537\n/devtools/browser/49b1f915-e9e6-46ac-8223-b25ca43ca790"), expected);
  EXPECT_EQ(noted("38537\n/devtools/browser/49b1f915-e9e6-46ac-8223-b25ca43ca790\n"), expected);
}

TEST(DevToolsPort, IsNotWhatElseMayBeNoted) {
  EXPECT_EQ(devToolsPort("/nowhere"), std::nullopt);
  for (const std::string note : {"", "\n", "1", "1\n", "0\n/devtools/browser/1", "65536\n/devtools/browser/1",
                                 "-1\n/devtools/browser/1", "1x\n/devtools/browser/1", " 1\n/devtools/browser/1",
                                 "1\n/json/new", "1\n/devtools/browser/1 HTTP/1.1", "1\n/devtools/browser/\r\nX: 1"})
    EXPECT_EQ(noted(note), std::nullopt) << note;
  EXPECT_EQ(noted("1\n/devtools/browser/" + std::string(5000, '1')), std::nullopt);
}

TEST(DevToolsPort, IsConnectedToWhereTheBrowserAnswers) {
  EXPECT_TRUE(isBrowser(success(about(FakeDevTools::path))));
  EXPECT_TRUE(isBrowser("HTTP/1.1 200 OK\r\nServer: x\r\ncontent-length:\t2000\r\n\r\n" + about(FakeDevTools::path) +
                        std::string(2000, ' ')));
}

TEST(DevToolsPort, IsNotConnectedToWhereSomebodyElseAnswers) {
  std::string failure = success(about(FakeDevTools::path));
  failure.replace(failure.find("200 OK"), 6, "500 No");
  const std::map<std::string, std::string> answers = {
      {"another browser", success(about("/devtools/browser/another"))},
      {"a browser that would ask the user first", "HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n"},
      {"a failure", failure},
      {"a web page", success("<html>")},
      {"other JSON", success("[1, {\"webSocketDebuggerUrl\": 7}]")},
      {"a path that is a number", success("{\"webSocketDebuggerUrl\": 7}")},
      {"too large an answer", "HTTP/1.1 200 OK\r\nContent-Length: 100000\r\n\r\n"},
      {"no size", "HTTP/1.1 200 OK\r\n\r\n" + about(FakeDevTools::path)},
      {"an empty size", "HTTP/1.1 200 OK\r\nContent-Length: \r\n\r\n"},
      {"a size that is none", "HTTP/1.1 200 OK\r\nContent-Length: -1\r\n\r\n"},
      {"an endless head", std::string(1 << 20, 'x')},
      {"a mail server", "220 mail.example ESMTP\r\n\r\n"}};
  for (const auto& [what, answer] : answers)
    EXPECT_FALSE(isBrowser(answer)) << what;
  EXPECT_FALSE(isConnected({deadPort(), FakeDevTools::path})) << "nobody";
}

TEST(DevToolsPort, IsWaitedForUntilTheDeadline) {
  const FakeServer silent([](const FakeServer::Connection& client) { client.awaitEnd(); });
  EXPECT_FALSE(isConnected({silent.port(), FakeDevTools::path}, std::chrono::steady_clock::now() + 20ms));
}

TEST(DevToolsPort, IsAskedWithoutOpeningAWebSocketForPermission) {
  int webSockets = 0;
  {
    const FakeServer asking([&](const FakeServer::Connection& client) {
      webSockets += client.readTo("\r\n\r\n").starts_with("GET /devtools/") ? 1 : 0;
      client.write("HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n");
    });
    EXPECT_FALSE(isConnected({asking.port(), FakeDevTools::path}));
  }
  EXPECT_EQ(webSockets, 0);
}

// The work of another process, whose DevTools answer like the browser's.
void answerAsTheBrowser(const OtherProcess::Tell& tell, int listener) {
  const FakeDevTools devTools([](const FakeDevTools::json&) { return FakeDevTools::Messages(); }, listener);
  tell(FakeServer::portOf(listener));
}

TEST(DevToolsPort, IsNotConnectedToWhereAnotherProcessListens) {
  const OtherProcess other(
      [](const OtherProcess::Tell& tell) { answerAsTheBrowser(tell, FakeServer::listenOnAnyPort()); });
  const DevToolsPort devTools = {other.port(), FakeDevTools::path};
  const auto socket = connectDevTools(devTools, getpid(), farAway());
  ASSERT_FALSE(socket);
  EXPECT_EQ(socket.error(), "The browser's DevTools are not asked: another program has their port, " +
                                std::to_string(other.port()) + '.');
  const auto ofOther = connectDevTools(devTools, other.pid(), farAway());
  EXPECT_TRUE(ofOther && ofOther->has_value());
}

TEST(DevToolsPort, IsNotConnectedToWhereAnotherProcessAccepts) {
  const DesktopSupport::FileDescriptor listener(FakeServer::listenOnAnyPort());
  const OtherProcess other([&](const OtherProcess::Tell& tell) { answerAsTheBrowser(tell, listener.number()); });
  ASSERT_NE(other.port(), 0);
  EXPECT_FALSE(connectDevTools({other.port(), FakeDevTools::path}, getpid(), farAway()));
}

}  // namespace
}  // namespace BrowserSessions

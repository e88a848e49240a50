#include <chrono>
#include <future>
#include <string>

#include <gtest/gtest.h>

#include "BrowserSessions/Chromium/DevTools/WebSocket.h"
#include "Tests/BrowserSessions/FakeServer.h"
#include "Tests/BrowserSessions/FakeWebSocket.h"

namespace BrowserSessions {
namespace {

using namespace std::chrono_literals;

using Connection = FakeServer::Connection;
using Text = std::optional<std::string>;

// Only reached if a test fails.
WebSocket::Deadline farAway() {
  return std::chrono::steady_clock::now() + 60s;
}

// The message that the client receives from a server that writes only these bytes after the handshake.
Text receivedFrom(const std::string& bytes) {
  const FakeServer server([&](const Connection& connection) {
    FakeWebSocket(connection).shakeHands();
    if (connection.write(bytes))
      connection.awaitEnd();
  });
  auto socket = WebSocket::open(server.port(), "/path", farAway());
  return socket ? socket->receive() : "not connected";
}

// Whether the client accepts this answer to its request.
bool isOpenedBy(const std::function<std::string(const std::string& request)>& answer) {
  const FakeServer server(
      [&](const Connection& connection) { connection.write(answer(connection.readTo("\r\n\r\n"))); });
  return WebSocket::open(server.port(), "/path", farAway()).has_value();
}

std::string frame(std::uint8_t opcode, std::string_view payload, bool isLast = true) {
  return FakeWebSocket::frame(opcode, payload, isLast);
}

std::string nothingMore() {
  return frame(FakeWebSocket::close, "");
}

TEST(WebSocket, AsksForThePathAsAClientMust) {
  std::promise<std::string> request;
  const FakeServer server(
      [&](const Connection& connection) { request.set_value(FakeWebSocket(connection).shakeHands()); });
  EXPECT_TRUE(WebSocket::open(server.port(), "/devtools/browser/1-2", farAway()));
  const std::string text = request.get_future().get();
  EXPECT_TRUE(text.starts_with("GET /devtools/browser/1-2 HTTP/1.1\r\n")) << text;
  for (const std::string& field :
       {"Host: 127.0.0.1:" + std::to_string(server.port()), std::string("Upgrade: websocket"),
        std::string("Connection: Upgrade"), std::string("Sec-WebSocket-Version: 13")})
    EXPECT_NE(text.find("\r\n" + field + "\r\n"), std::string::npos) << field;
}

TEST(WebSocket, SendsMessagesOfAnySizeMasked) {
  std::vector<std::string> messages;
  for (const std::size_t size : {0, 5, 125, 126, 65'535, 65'536, 70'000})
    messages.emplace_back(size, 'm');
  std::promise<std::vector<FakeWebSocket::Frame>> frames;
  const FakeServer server([&](const Connection& connection) {
    const FakeWebSocket socket(connection);
    socket.shakeHands();
    std::vector<FakeWebSocket::Frame> received;
    for (std::size_t number = 0; number < messages.size(); ++number)
      received.push_back(socket.receive());
    frames.set_value(std::move(received));
  });
  auto socket = WebSocket::open(server.port(), "/", farAway());
  ASSERT_TRUE(socket);
  for (const std::string& message : messages)
    EXPECT_TRUE(socket->send(message));
  const auto sent = frames.get_future().get();
  for (std::size_t number = 0; number < messages.size(); ++number) {
    EXPECT_EQ(sent[number].payload, messages[number]);
    EXPECT_EQ(sent[number].opcode, FakeWebSocket::text);
    EXPECT_TRUE(sent[number].isMasked);
  }
}

TEST(WebSocket, ReceivesMessagesOfAnySize) {
  for (const std::size_t size : {0, 1, 125, 126, 127, 65'535, 65'536, 3'000'000}) {
    const std::string message(size, 'x');
    EXPECT_EQ(receivedFrom(frame(FakeWebSocket::text, message)), message) << size;
  }
}

TEST(WebSocket, ReceivesMessagesOneAfterTheOther) {
  const FakeServer server([](const Connection& connection) {
    FakeWebSocket(connection).shakeHands();
    connection.write(frame(FakeWebSocket::text, "one") + frame(FakeWebSocket::text, "two") + nothingMore());
  });
  auto socket = WebSocket::open(server.port(), "/", farAway());
  ASSERT_TRUE(socket);
  EXPECT_EQ(socket->receive(), "one");
  EXPECT_EQ(socket->receive(), "two");
  EXPECT_EQ(socket->receive(), std::nullopt);
}

TEST(WebSocket, PutsFragmentsTogetherAcrossPings) {
  EXPECT_EQ(receivedFrom(frame(FakeWebSocket::text, "a", false) + frame(FakeWebSocket::ping, "?") +
                         frame(FakeWebSocket::continuation, "", false) + frame(FakeWebSocket::pong, "") +
                         frame(FakeWebSocket::continuation, "b")),
            "ab");
}

TEST(WebSocket, AnswersPingsAndTheClose) {
  std::promise<std::vector<FakeWebSocket::Frame>> frames;
  const FakeServer server([&](const Connection& connection) {
    const FakeWebSocket socket(connection);
    socket.shakeHands();
    connection.write(frame(FakeWebSocket::ping, "there?") + frame(FakeWebSocket::close, "\x03\xE8"));
    frames.set_value({socket.receive(), socket.receive()});
  });
  auto socket = WebSocket::open(server.port(), "/", farAway());
  ASSERT_TRUE(socket);
  EXPECT_EQ(socket->receive(), std::nullopt);
  const auto sent = frames.get_future().get();
  EXPECT_EQ(sent[0].opcode, FakeWebSocket::pong);
  EXPECT_EQ(sent[0].payload, "there?");
  EXPECT_EQ(sent[1].opcode, FakeWebSocket::close);
  EXPECT_EQ(sent[1].payload, "\x03\xE8");
}

TEST(WebSocket, ReceivesNothingFromAServerThatBreaksTheProtocol) {
  const std::map<std::string, std::string> answers = {
      {"a fragment of nothing", frame(FakeWebSocket::continuation, "a")},
      {"a message within a message", frame(FakeWebSocket::text, "a", false) + frame(FakeWebSocket::text, "b")},
      {"bytes", frame(FakeWebSocket::binary, "a")},
      {"an unknown kind of frame", frame(5, "a")},
      {"a ping in fragments", frame(FakeWebSocket::ping, "a", false) + frame(FakeWebSocket::text, "b")},
      {"a long ping", frame(FakeWebSocket::ping, std::string(126, 'a')) + frame(FakeWebSocket::text, "b")},
      {"a masked frame", std::string("\x81\x81\0\0\0\0a", 7)},
      {"a reserved bit",
       "\xC1\x01"
       "a"},
      {"a message of any size", "\x81\x7F" + FakeWebSocket::number(~0ULL, 8)}};
  for (const auto& [what, bytes] : answers)
    EXPECT_EQ(receivedFrom(bytes), std::nullopt) << what;
}

// All bytes are sent, so only the limit can be the reason why a message is not received.
TEST(WebSocket, ReceivesMessagesOfUpTo64MiB) {
  const std::string longest(64 << 20, 'x');
  EXPECT_TRUE(receivedFrom(frame(FakeWebSocket::text, longest)) == longest);
  EXPECT_TRUE(receivedFrom(frame(FakeWebSocket::text, longest + 'x')) == std::nullopt);
  EXPECT_TRUE(receivedFrom(frame(FakeWebSocket::text, "x", false) + frame(FakeWebSocket::continuation, longest)) ==
              std::nullopt);
}

TEST(WebSocket, ReceivesNothingFromAServerThatGoesWithinAFrame) {
  const std::string bytes = frame(FakeWebSocket::text, std::string(200, 'a'));
  for (std::size_t size = 0; size < bytes.size(); ++size) {
    const FakeServer server([&](const Connection& connection) {
      FakeWebSocket(connection).shakeHands();
      connection.write(bytes.substr(0, size));
    });
    auto socket = WebSocket::open(server.port(), "/", farAway());
    ASSERT_TRUE(socket);
    EXPECT_EQ(socket->receive(), std::nullopt) << size;
  }
}

TEST(WebSocket, IsNotOpenedByOtherServers) {
  EXPECT_FALSE(WebSocket::open(deadPort(), "/", farAway())) << "nobody";
  EXPECT_FALSE(isOpenedBy([](const std::string&) { return ""; })) << "silence";
  EXPECT_FALSE(isOpenedBy([](const std::string&) { return "220 mail.example ESMTP\r\n"; }));
  EXPECT_FALSE(isOpenedBy([](const std::string&) { return "HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n"; }));
  EXPECT_FALSE(isOpenedBy([](const std::string&) { return "HTTP/1.1 101 Sure\r\nUpgrade: websocket\r\n\r\n"; }));
  EXPECT_FALSE(isOpenedBy([](const std::string&) {
    return "HTTP/1.1 101 Sure\r\nSec-WebSocket-Accept: AAAAAAAAAAAAAAAAAAAAAAAAAAA=\r\n\r\n";
  }));
  EXPECT_FALSE(isOpenedBy([](const std::string&) { return std::string(1 << 20, 'x'); })) << "endless";
  EXPECT_TRUE(isOpenedBy([](const std::string& request) {
    return "HTTP/1.1 101 Sure\r\nsec-websocket-accept: " + FakeWebSocket::acceptance(request) + "\r\n\r\n";
  }));
}

TEST(WebSocket, WaitsNoLongerThanUntilTheDeadline) {
  const FakeServer silent([](const Connection& connection) { connection.awaitEnd(); });
  EXPECT_FALSE(WebSocket::open(silent.port(), "/", std::chrono::steady_clock::now() + 20ms));
  EXPECT_FALSE(WebSocket::open(silent.port(), "/", std::chrono::steady_clock::now() - 20ms));

  const FakeServer chatty([](const Connection& connection) {
    FakeWebSocket(connection).shakeHands();
    while (connection.write(frame(FakeWebSocket::pong, ""))) {
    }
  });
  auto socket = WebSocket::open(chatty.port(), "/", farAway());
  ASSERT_TRUE(socket);
  socket->setDeadline(std::chrono::steady_clock::now() + 20ms);
  EXPECT_EQ(socket->receive(), std::nullopt);
}

}  // namespace
}  // namespace BrowserSessions

#include <ostream>
#include <string>

#include <gmock/gmock.h>

#include "BrowserSessions/Chromium/DevTools/PortListener.h"
#include "DesktopSupport/System/FileDescriptor.h"
#include "Tests/BrowserSessions/FakeServer.h"
#include "Tests/BrowserSessions/OtherProcess.h"

namespace BrowserSessions {

static void PrintTo(const TCPSocket& socket, std::ostream* stream) {
  *stream << (socket.isLocal ? "local, " : "") << (socket.isListening ? "listening, " : "") << "port " << socket.port
          << " to " << socket.remotePort << ", user " << socket.user << ", inode " << socket.inode;
}

static void PrintTo(PortListener::Owner owner, std::ostream* stream) {
  *stream << (owner == PortListener::Owner::none      ? "nobody"
              : owner == PortListener::Owner::process ? "the process"
                                                      : "somebody else");
}

namespace {

using DesktopSupport::FileDescriptor;
using testing::ElementsAre;
using testing::IsEmpty;
using Owner = PortListener::Owner;

const std::string heading =
    "  sl  local_address rem_address   st tx_queue rx_queue tr tm->when retrnsmt   uid  timeout inode\n";

// A row of the table on a little-endian machine.
std::string row(const std::string& local, const std::string& remote, const std::string& state,
                const std::string& user = "1000", const std::string& inode = "77") {
  return "   0: " + local + ' ' + remote + ' ' + state + " 00000000:00000000 00:00000000 00000000  " + user +
         "        0 " + inode + " 1 0000000000000000 100 0 0 10 0\n";
}

TEST(TCPSockets, AreTheRowsOfTheTable) {
  const std::string table = heading + row("0100007F:1F90", "00000000:0000", "0A") +
                            row("0100007F:1F90", "0100007F:D431", "01", "0", "0") +
                            row("0100007F:1F91", "0100007F:D431", "06");
  EXPECT_THAT(tcpSockets(table),
              ElementsAre(TCPSocket{true, true, 8080, 0, 1000, 77}, TCPSocket{true, false, 8080, 54321, 0, 0}));
}

TEST(TCPSockets, AreLocalIfTheyHaveToDoWithTheLoopbackAddress) {
  const auto isLocal = [](const std::string& local, const std::string& remote, const std::string& state) {
    return tcpSockets(row(local + ":0001", remote + ":0002", state)).at(0).isLocal;
  };
  const std::string loopback = "0100007F";
  const std::string any = "00000000";
  const std::string mapped = "0000000000000000FFFF0000";
  EXPECT_TRUE(isLocal(loopback, any, "0A"));
  EXPECT_TRUE(isLocal(any, any, "0A"));
  EXPECT_TRUE(isLocal(any + any + any + any, any, "0A"));
  EXPECT_TRUE(isLocal(mapped + loopback, any, "0A"));
  EXPECT_TRUE(isLocal(mapped + any, any, "0A"));
  EXPECT_FALSE(isLocal("0200007F", any, "0A"));
  EXPECT_FALSE(isLocal("00000000000000000000000001000000", any, "0A"));
  EXPECT_TRUE(isLocal(loopback, loopback, "01"));
  EXPECT_TRUE(isLocal(mapped + loopback, mapped + loopback, "01"));
  EXPECT_FALSE(isLocal(loopback, "0200007F", "01"));
  EXPECT_FALSE(isLocal("0200007F", loopback, "01"));
}

TEST(TCPSockets, AreNoneInLinesOfAnotherKind) {
  const std::string sound = row("0100007F:1F90", "00000000:0000", "0A");
  EXPECT_THAT(tcpSockets(""), IsEmpty());
  EXPECT_THAT(tcpSockets(heading), IsEmpty());
  for (const auto& line : {row("0100007F", "00000000:0000", "0A"), row("0100007F:12345", "00000000:0000", "0A"),
                           row("0100007F:1F90", "x", "0A"), row("0100007F:1F90", "00000000:0000", "0A", "-1"),
                           row("0100007F:1F90", "00000000:0000", "0A", "99999999999"),
                           row("0100007F:1F90", "00000000:0000", "0A", "0", "7x"), sound.substr(0, 80)})
    EXPECT_THAT(tcpSockets(line), IsEmpty()) << line;
}

// A socket that listens on a port of 127.0.0.1: on any, or on the given one together with others that allow it.
int listenOn(std::uint16_t port, bool isShared) {
  const int listener = socket(AF_INET, SOCK_STREAM, 0);
  const int yes = 1;
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  if (isShared)
    EXPECT_EQ(setsockopt(listener, SOL_SOCKET, SO_REUSEPORT, &yes, sizeof(yes)), 0);
  EXPECT_EQ(bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof(address)), 0);
  EXPECT_EQ(listen(listener, 16), 0);
  return listener;
}

// A connection to a port of 127.0.0.1.
int connectTo(std::uint16_t port) {
  const int client = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  EXPECT_EQ(connect(client, reinterpret_cast<sockaddr*>(&address), sizeof(address)), 0);
  return client;
}

// Makes another process listen, and accept connections as soon as it has told its port.
void listenAndTell(const OtherProcess::Tell& tell) {
  tell(FakeServer::portOf(FakeServer::listenOnAnyPort()));
}

TEST(PortListener, IsTheProcessThatListens) {
  const FileDescriptor listener(FakeServer::listenOnAnyPort());
  EXPECT_EQ(PortListener(getpid()).listener(FakeServer::portOf(listener.number())), Owner::process);
}

TEST(PortListener, IsNobodyWhereNobodyListens) {
  EXPECT_EQ(PortListener(getpid()).listener(deadPort()), Owner::none);
}

TEST(PortListener, IsSomebodyElseIfAnotherProcessListens) {
  const OtherProcess other(listenAndTell);
  ASSERT_NE(other.port(), 0);
  EXPECT_EQ(PortListener(getpid()).listener(other.port()), Owner::other);
  EXPECT_EQ(PortListener(other.pid()).listener(other.port()), Owner::process);
}

// If the test is not allowed to change the user, the other process has the same user.
TEST(PortListener, IsSomebodyElseIfItIsOfAnotherUser) {
  constexpr uid_t nobody = 65534;
  const bool mayChangeUser = geteuid() == 0;
  const OtherProcess other([&](const OtherProcess::Tell& tell) {
    if (!mayChangeUser || setuid(nobody) == 0)
      listenAndTell(tell);
  });
  ASSERT_NE(other.port(), 0);
  EXPECT_EQ(PortListener(mayChangeUser ? other.pid() : getpid()).listener(other.port()), Owner::other);
}

TEST(PortListener, IsSomebodyElseIfAnotherProcessListensBesideIt) {
  const OtherProcess other([](const OtherProcess::Tell& tell) { tell(FakeServer::portOf(listenOn(0, true))); });
  ASSERT_NE(other.port(), 0);
  const FileDescriptor listener(listenOn(other.port(), true));
  EXPECT_EQ(PortListener(getpid()).listener(other.port()), Owner::other);
}

TEST(PortListener, IsTheProcessAlsoByIPv6) {
  const FileDescriptor listener(socket(AF_INET6, SOCK_STREAM, 0));
  const sockaddr_in6 address = {
      .sin6_family = AF_INET6, .sin6_port = 0, .sin6_flowinfo = 0, .sin6_addr = in6addr_any, .sin6_scope_id = 0};
  if (bind(listener.number(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0)
    GTEST_SKIP() << "This machine has no IPv6.";
  ASSERT_EQ(listen(listener.number(), 16), 0);
  const std::uint16_t port = FakeServer::portOf(listener.number());
  EXPECT_EQ(PortListener(getpid()).listener(port), Owner::process);
  const FileDescriptor client(connectTo(port));
  const FileDescriptor accepted(accept(listener.number(), nullptr, nullptr));
  EXPECT_EQ(PortListener(getpid()).accepter(port, FakeServer::portOf(client.number())), Owner::process);
}

TEST(PortListener, HasAcceptedWhatTheProcessHasAccepted) {
  const FileDescriptor listener(FakeServer::listenOnAnyPort());
  const std::uint16_t port = FakeServer::portOf(listener.number());
  const FileDescriptor client(connectTo(port));
  const std::uint16_t clientPort = FakeServer::portOf(client.number());
  EXPECT_EQ(PortListener(getpid()).accepter(port, clientPort), Owner::other) << "not yet";
  const FileDescriptor accepted(accept(listener.number(), nullptr, nullptr));
  EXPECT_EQ(PortListener(getpid()).accepter(port, clientPort), Owner::process);
  EXPECT_EQ(PortListener(getpid()).accepter(port, port), Owner::none);
}

TEST(PortListener, HasNotAcceptedWhatAnotherProcessWithTheSameListenerHas) {
  const FileDescriptor listener(FakeServer::listenOnAnyPort());
  const std::uint16_t port = FakeServer::portOf(listener.number());
  const FileDescriptor client(connectTo(port));
  const std::uint16_t clientPort = FakeServer::portOf(client.number());
  const OtherProcess other([&](const OtherProcess::Tell& tell) {
    if (accept(listener.number(), nullptr, nullptr) >= 0)
      tell(port);
  });
  ASSERT_EQ(other.port(), port);
  EXPECT_EQ(PortListener(getpid()).listener(port), Owner::process);
  EXPECT_EQ(PortListener(getpid()).accepter(port, clientPort), Owner::other);
  EXPECT_EQ(PortListener(other.pid()).accepter(port, clientPort), Owner::process);
}

}  // namespace
}  // namespace BrowserSessions

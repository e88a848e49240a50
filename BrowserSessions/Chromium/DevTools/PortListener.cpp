#include "BrowserSessions/Chromium/DevTools/PortListener.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>
#include <optional>
#include <set>
#include <string>
#include <system_error>
#include <utility>

#include <netinet/in.h>
#include <unistd.h>

#include "DesktopSupport/System/FileContents.h"
#include "DesktopSupport/System/Text.h"

namespace BrowserSessions {

namespace {

using DesktopSupport::parseNumber;
using DesktopSupport::separated;

// A line has some 150 bytes.
constexpr std::size_t maximumTableSize = 64 << 20;

// The states of a socket, as the kernel numbers them.
constexpr std::string_view established = "01";
constexpr std::string_view listening = "0A";

// The columns of a table that are read.
enum Column : std::size_t { local = 1, remote = 2, state = 3, user = 7, inode = 9, columnCount = 10 };

// Four bytes of an address as they are in a table: a number in this machine's byte order.
std::string word(std::uint32_t bytes) {
  std::array<char, 9> digits = {};
  std::snprintf(digits.data(), digits.size(), "%08X", bytes);
  return digits.data();
}

struct Addresses {
  std::string loopback = word(htonl(INADDR_LOOPBACK));
  std::string any = word(htonl(INADDR_ANY));
  // The start of an IPv4 address in a socket of IPv6.
  std::string mapped = word(0) + word(0) + word(htonl(0xFFFF));
  std::string anyIPv6 = any + any + any + any;
};

bool isLoopback(std::string_view address) {
  static const Addresses addresses;
  return address == addresses.loopback || address == addresses.mapped + addresses.loopback;
}

bool isAny(std::string_view address) {
  static const Addresses addresses;
  return address == addresses.any || address == addresses.anyIPv6 || address == addresses.mapped + addresses.any;
}

// The address and the port of "0100007F:1F90".
std::optional<std::pair<std::string_view, std::uint16_t>> endpoint(std::string_view text) {
  const auto colon = text.find(':');
  if (colon == std::string_view::npos)
    return std::nullopt;
  const auto port = parseNumber<std::uint16_t>(text.substr(colon + 1), 16);
  return port ? std::optional(std::pair(text.substr(0, colon), *port)) : std::nullopt;
}

std::optional<TCPSocket> socketIn(std::string_view line) {
  const auto columns = separated(line, ' ');
  if (columns.size() < columnCount || (columns[state] != listening && columns[state] != established))
    return std::nullopt;
  const auto here = endpoint(columns[local]);
  const auto there = endpoint(columns[remote]);
  const auto owner = parseNumber<uid_t>(columns[user]);
  const auto file = parseNumber<std::uint64_t>(columns[inode]);
  if (!here || !there || !owner || !file)
    return std::nullopt;
  const bool isListening = columns[state] == listening;
  const bool isLocal =
      isLoopback(here->first) ? isListening || isLoopback(there->first) : isListening && isAny(here->first);
  return TCPSocket{.isLocal = isLocal,
                   .isListening = isListening,
                   .port = here->second,
                   .remotePort = there->second,
                   .user = *owner,
                   .inode = *file};
}

// The sockets on 127.0.0.1 that meet the condition. The kernel takes milliseconds to make a table, so the one of IPv6
// is read only if the other has no such socket. Two users cannot have the same port in both.
template <typename Condition>
std::vector<TCPSocket> localSockets(const std::filesystem::path& processes, Condition fits) {
  std::vector<TCPSocket> found;
  for (const char* table : {"net/tcp", "net/tcp6"}) {
    const auto sockets = tcpSockets(DesktopSupport::fileContents(processes / table, maximumTableSize).value_or(""));
    std::ranges::copy_if(sockets, std::back_inserter(found),
                         [&](const TCPSocket& socket) { return socket.isLocal && fits(socket); });
    if (!found.empty())
      break;
  }
  return found;
}

}  // namespace

std::vector<TCPSocket> tcpSockets(std::string_view table) {
  std::vector<TCPSocket> sockets;
  for (const std::string_view line : separated(table, '\n'))
    if (const auto socket = socketIn(line))
      sockets.push_back(*socket);
  return sockets;
}

PortListener::Owner PortListener::listener(std::uint16_t port) const {
  return owner(localSockets(processes_, [&](const TCPSocket& each) { return each.isListening && each.port == port; }));
}

PortListener::Owner PortListener::accepter(std::uint16_t port, std::uint16_t clientPort) const {
  return owner(localSockets(processes_, [&](const TCPSocket& each) {
    return !each.isListening && each.port == port && each.remotePort == clientPort;
  }));
}

// Who has the sockets open.
PortListener::Owner PortListener::owner(const std::vector<TCPSocket>& sockets) const {
  if (sockets.empty())
    return Owner::none;
  std::set<std::string> missing;
  for (const TCPSocket& socket : sockets) {
    if (socket.user != geteuid() || socket.inode == 0)
      return Owner::other;
    missing.insert("socket:[" + std::to_string(socket.inode) + ']');
  }
  std::error_code error;
  using Files = std::filesystem::directory_iterator;
  for (Files file(processes_ / std::to_string(process_) / "fd", error), end; !error && file != end;
       file.increment(error)) {
    std::error_code ignored;
    missing.erase(std::filesystem::read_symlink(file->path(), ignored).string());
    if (missing.empty())
      return Owner::process;
  }
  return Owner::other;
}

}  // namespace BrowserSessions

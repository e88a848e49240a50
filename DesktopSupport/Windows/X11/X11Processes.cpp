#include "DesktopSupport/Windows/X11/X11Processes.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>
#include <set>
#include <string_view>
#include <vector>

#include <unistd.h>

#include "DesktopSupport/Processes/ProcessInfo.h"

namespace DesktopSupport {

namespace {

// Whether the server has the extension, and its process ids are those of this machine.
bool isUsable(const X11Connection& connection) {
  const auto* extension = connection.library().getExtensionData(connection.handle(), connection.library().resID);
  return extension != nullptr && extension->present != 0 && connection.isLocal();
}

std::uint32_t ownClient(const X11Connection& connection) {
  return connection.library().getSetup(connection.handle())->resource_id_base;
}

std::vector<xcb_res_client_id_spec_t> clientSpecs(const X11Connection& connection,
                                                  std::span<const xcb_window_t> windows) {
  std::set<std::uint32_t> clients = {ownClient(connection)};
  for (const xcb_window_t window : windows)
    clients.insert(connection.clientOf(window));
  std::vector<xcb_res_client_id_spec_t> clientSpecs;
  clientSpecs.reserve(clients.size());
  for (const std::uint32_t client : clients)
    clientSpecs.push_back({.client = client, .mask = XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID});
  return clientSpecs;
}

std::string_view withoutDomain(std::string_view name) {
  return name.substr(0, name.find('.'));
}

// Each name may be written with its domain or without.
bool isSameHost(std::string_view one, std::string_view other) {
  const bool haveBothDomains = one.contains('.') && other.contains('.');
  return !one.empty() && (haveBothDomains ? one == other : withoutDomain(one) == withoutDomain(other));
}

// ":0.1" is the second screen of ":0".
std::string_view withoutScreen(std::string_view display) {
  const auto colon = std::min(display.rfind(':'), display.size());
  return display.substr(0, display.find('.', colon));
}

bool isForThisDisplay(const ProcessInfo& process) {
  const char* const own = std::getenv("DISPLAY");
  const auto display = process.environment("DISPLAY");
  return own != nullptr && display && withoutScreen(*display) == withoutScreen(own);
}

}  // namespace

void X11ClientProcesses::prefetch(X11Connection& connection) {
  connection.library().prefetchExtensionData(connection.handle(), connection.library().resID);
}

X11ClientProcesses::X11ClientProcesses(X11Connection& connection, std::span<const xcb_window_t> windows) {
  if (windows.empty() || !isUsable(connection))
    return;
  const auto clients = clientSpecs(connection, windows);
  request_ = connection.sent(connection.library().resQueryClientIDs(
      connection.handle(), static_cast<std::uint32_t>(clients.size()), clients.data()));
}

void X11ClientProcesses::collect(X11Connection& connection) {
  const auto reply = request_ ? connection.reply<xcb_res_query_client_ids_reply_t>(*request_) : nullptr;
  if (!reply)
    return;
  const XCBLibrary& library = connection.library();
  for (auto each = library.resQueryClientIDsIterator(reply.get()); each.rem > 0; library.resClientIDValueNext(&each))
    if (each.data->spec.mask == XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID &&
        library.resClientIDValueValueLength(each.data) > 0)
      processes_[each.data->spec.client] = static_cast<pid_t>(*library.resClientIDValueValue(each.data));
  // The server, or a program between, may be in another PID namespace.
  const auto own = processes_.find(ownClient(connection));
  areForeign_ = own == processes_.end() || own->second != ownProcessID();
}

std::optional<pid_t> X11ClientProcesses::processOf(const X11Connection& connection, xcb_window_t window) const {
  const auto found = processes_.find(connection.clientOf(window));
  // The server cannot name a process outside of its own namespace, and says 0.
  return found == processes_.end() || found->second <= 0 ? std::nullopt : std::optional(found->second);
}

std::optional<pid_t> localProcess(const WindowProcess& told, const std::string& hostName,
                                  const std::filesystem::path& processes) {
  if (told.ofServer && !told.isServerForeign)
    return told.ofServer;
  // A program that knows itself by the server's number is in the server's namespace, not in this one.
  if (told.ofServer && told.ofWindow == static_cast<std::uint32_t>(*told.ofServer))
    return std::nullopt;
  const bool isPossible = told.ofWindow && *told.ofWindow > 0 && *told.ofWindow <= std::numeric_limits<pid_t>::max();
  if (!isPossible || !isSameHost(told.machine, hostName))
    return std::nullopt;
  const ProcessInfo process(static_cast<pid_t>(*told.ofWindow), processes);
  return process.isOwnAndOutsideNamespaces() && isForThisDisplay(process) ? process.pid() : std::nullopt;
}

std::string hostName() {
  std::array<char, 256> name = {};
  return gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

}  // namespace DesktopSupport

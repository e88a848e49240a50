#include "DesktopSupport/Windows/X11/X11Processes.h"

#include <array>
#include <limits>
#include <set>
#include <string_view>
#include <vector>

#include <unistd.h>

namespace DesktopSupport {

namespace {

// Whether the server has the extension, and its process ids are those of this machine.
bool isUsable(const X11Connection& connection) {
  const auto* extension = xcb_get_extension_data(connection.handle(), &xcb_res_id);
  return extension != nullptr && extension->present != 0 && connection.isLocal();
}

std::vector<xcb_res_client_id_spec_t> clientSpecs(const X11Connection& connection,
                                                  std::span<const xcb_window_t> windows) {
  std::set<std::uint32_t> clients;
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

}  // namespace

void X11ClientProcesses::prefetch(X11Connection& connection) {
  xcb_prefetch_extension_data(connection.handle(), &xcb_res_id);
}

X11ClientProcesses::X11ClientProcesses(X11Connection& connection, std::span<const xcb_window_t> windows) {
  if (windows.empty() || !isUsable(connection))
    return;
  const auto clients = clientSpecs(connection, windows);
  request_ = connection.sent(
      xcb_res_query_client_ids(connection.handle(), static_cast<std::uint32_t>(clients.size()), clients.data()));
}

void X11ClientProcesses::collect(X11Connection& connection) {
  const auto reply = request_ ? connection.reply<xcb_res_query_client_ids_reply_t>(*request_) : nullptr;
  if (!reply)
    return;
  for (auto each = xcb_res_query_client_ids_ids_iterator(reply.get()); each.rem > 0;
       xcb_res_client_id_value_next(&each))
    if (each.data->spec.mask == XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID &&
        xcb_res_client_id_value_value_length(each.data) > 0)
      processes_[each.data->spec.client] = static_cast<pid_t>(*xcb_res_client_id_value_value(each.data));
}

std::optional<pid_t> X11ClientProcesses::processOf(const X11Connection& connection, xcb_window_t window) const {
  const auto found = processes_.find(connection.clientOf(window));
  return found == processes_.end() ? std::nullopt : std::optional(found->second);
}

std::optional<pid_t> localProcess(const WindowProcess& told, const std::string& hostName) {
  if (told.ofServer)
    return told.ofServer;
  const bool isPossible = told.ofWindow && *told.ofWindow > 0 && *told.ofWindow <= std::numeric_limits<pid_t>::max();
  if (!isPossible || !isSameHost(told.machine, hostName))
    return std::nullopt;
  return static_cast<pid_t>(*told.ofWindow);
}

std::string hostName() {
  std::array<char, 256> name = {};
  return gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

}  // namespace DesktopSupport

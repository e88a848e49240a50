#include "DesktopSupport/Windows/X11/X11ClientProcesses.h"

#include <set>
#include <vector>

namespace DesktopSupport {

namespace {

// The server has this extension, and its process ids are this machine's.
bool isUsable(const X11Connection& connection) {
  const auto* extension = xcb_get_extension_data(connection.handle(), &xcb_res_id);
  return extension != nullptr && extension->present != 0 && connection.isLocal();
}

std::vector<xcb_res_client_id_spec_t> specifications(const X11Connection& connection,
                                                     std::span<const xcb_window_t> windows) {
  std::set<std::uint32_t> clients;
  for (const xcb_window_t window : windows)
    clients.insert(connection.clientOf(window));
  std::vector<xcb_res_client_id_spec_t> specifications;
  specifications.reserve(clients.size());
  for (const std::uint32_t client : clients)
    specifications.push_back({.client = client, .mask = XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID});
  return specifications;
}

}  // namespace

void X11ClientProcesses::prefetch(X11Connection& connection) {
  xcb_prefetch_extension_data(connection.handle(), &xcb_res_id);
}

X11ClientProcesses::X11ClientProcesses(X11Connection& connection, std::span<const xcb_window_t> windows) {
  if (windows.empty() || !isUsable(connection))
    return;
  const auto clients = specifications(connection, windows);
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

}  // namespace DesktopSupport

#include "Tests/Support/TestDesktop.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <stdexcept>

#include <poll.h>

#include "Tests/Support/Patience.h"

namespace TestSupport {

namespace {

using Clock = std::chrono::steady_clock;

struct Free {
  void operator()(void* memory) const { std::free(memory); }
};
template <typename T>
using Reply = std::unique_ptr<T, Free>;

Reply<xcb_get_property_reply_t> valueOf(const TestDesktop& desktop, xcb_window_t window, std::string_view name) {
  constexpr std::uint32_t plenty = 1 << 20;
  const auto request = xcb_get_property(desktop.connection(), 0, window, desktop.atom(name), XCB_ATOM_ANY, 0, plenty);
  return Reply<xcb_get_property_reply_t>(xcb_get_property_reply(desktop.connection(), request, nullptr));
}

bool takeEvents(xcb_connection_t* connection) {
  bool any = false;
  while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection)})
    any = true;
  return any;
}

}  // namespace

TestDesktop::TestDesktop() : connection_(xcb_connect(nullptr, nullptr)) {
  if (xcb_connection_has_error(connection()) != 0)
    throw std::runtime_error("no X server: these tests run under script/desktop");
  root_ = xcb_setup_roots_iterator(xcb_get_setup(connection())).data->root;
  const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
  xcb_change_window_attributes(connection(), root_, XCB_CW_EVENT_MASK, &events);
}

xcb_atom_t TestDesktop::atom(std::string_view name) const {
  const auto request = xcb_intern_atom(connection(), 0, static_cast<std::uint16_t>(name.size()), name.data());
  const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection(), request, nullptr));
  return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

xcb_window_t TestDesktop::makeWindow() const {
  const xcb_window_t window = xcb_generate_id(connection());
  const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
  xcb_create_window(connection(), XCB_COPY_FROM_PARENT, window, root_, 0, 0, 100, 100, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                    XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
  return window;
}

void TestDesktop::setText(xcb_window_t window, std::string_view property, std::string_view bytes,
                          std::string_view type) const {
  xcb_change_property(connection(), XCB_PROP_MODE_REPLACE, window, atom(property), atom(type), 8,
                      static_cast<std::uint32_t>(bytes.size()), bytes.data());
}

void TestDesktop::setNumbers(xcb_window_t window, std::string_view property, const std::vector<std::uint32_t>& numbers,
                             std::string_view type) const {
  xcb_change_property(connection(), XCB_PROP_MODE_REPLACE, window, atom(property), atom(type), 32,
                      static_cast<std::uint32_t>(numbers.size()), numbers.data());
}

std::vector<std::uint32_t> TestDesktop::numbers(xcb_window_t window, std::string_view property) const {
  const auto value = valueOf(*this, window, property);
  if (!value || value->format != 32)
    return {};
  const auto* first = static_cast<const std::uint32_t*>(xcb_get_property_value(value.get()));
  return {first, first + value->value_len};
}

std::string TestDesktop::text(xcb_window_t window, std::string_view property) const {
  const auto value = valueOf(*this, window, property);
  if (!value || value->format != 8)
    return {};
  return {static_cast<const char*>(xcb_get_property_value(value.get())), value->value_len};
}

xcb_window_t TestDesktop::parent(xcb_window_t window) const {
  const Reply<xcb_query_tree_reply_t> tree(
      xcb_query_tree_reply(connection(), xcb_query_tree(connection(), window), nullptr));
  return tree ? tree->parent : static_cast<xcb_window_t>(XCB_NONE);
}

xcb_window_t TestDesktop::focus() const {
  const Reply<xcb_get_input_focus_reply_t> reply(
      xcb_get_input_focus_reply(connection(), xcb_get_input_focus(connection()), nullptr));
  return reply ? reply->focus : static_cast<xcb_window_t>(XCB_NONE);
}

std::optional<xcb_window_t> TestDesktop::activeWindow() const {
  const auto windows = clients();
  // Toolkits pass the focus on to a window inside their own.
  for (xcb_window_t window = focus(); window != XCB_NONE; window = parent(window))
    if (std::ranges::find(windows, window) != windows.end())
      return window;
  return std::nullopt;
}

bool TestDesktop::isReady(xcb_window_t window) const {
  return activeWindow() == window && focus() != window && !numbers(window, "_NET_WM_OPAQUE_REGION").empty();
}

std::optional<WindowGeometry> TestDesktop::geometry(xcb_window_t window) const {
  const auto size = xcb_get_geometry(connection(), window);
  const auto place = xcb_translate_coordinates(connection(), window, root_, 0, 0);
  const Reply<xcb_get_geometry_reply_t> sizeReply(xcb_get_geometry_reply(connection(), size, nullptr));
  const Reply<xcb_translate_coordinates_reply_t> placeReply(
      xcb_translate_coordinates_reply(connection(), place, nullptr));
  if (!sizeReply || !placeReply)
    return std::nullopt;
  return WindowGeometry{placeReply->dst_x, placeReply->dst_y, sizeReply->width, sizeReply->height};
}

void TestDesktop::watch(xcb_window_t window) const {
  const std::uint32_t events =
      XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_FOCUS_CHANGE;
  xcb_change_window_attributes(connection(), window, XCB_CW_EVENT_MASK, &events);
}

bool TestDesktop::waitUntil(const std::function<bool()>& condition) const {
  const auto deadline = Clock::now() + patience;
  while (!condition()) {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
    if (left.count() <= 0)
      return false;
    xcb_flush(connection());
    pollfd socket = {.fd = xcb_get_file_descriptor(connection()), .events = POLLIN, .revents = 0};
    if (!takeEvents(connection()))
      poll(&socket, 1, static_cast<int>(left.count()));
  }
  return true;
}

bool TestDesktop::waitForNoWindows() const {
  return waitUntil([this] { return clients().empty(); });
}

bool TestDesktop::waitForClass(std::string_view windowClass) const {
  const std::string end = std::string(windowClass) + '\0';
  return waitUntil([&] {
    return std::ranges::any_of(clients(), [&](auto window) { return text(window, "WM_CLASS").ends_with(end); });
  });
}

std::optional<xcb_window_t> TestDesktop::waitForTitle(std::string_view title) const {
  std::optional<xcb_window_t> found;
  const auto hasTitle = [&](xcb_window_t window) {
    watch(window);
    return text(window, "_NET_WM_NAME") == title;
  };
  static_cast<void>(waitUntil([&] {
    const auto windows = clients();
    const auto window = std::ranges::find_if(windows, hasTitle);
    found = window == windows.end() ? std::nullopt : std::optional(*window);
    return found.has_value();
  }));
  return found;
}

void TestDesktop::askWindowManager(xcb_window_t window, std::string_view request, std::uint32_t argument) const {
  xcb_client_message_event_t message = {};
  message.response_type = XCB_CLIENT_MESSAGE;
  message.format = 32;
  message.window = window;
  message.type = atom(request);
  message.data.data32[0] = argument;
  xcb_send_event(connection(), 0, root_, XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                 reinterpret_cast<const char*>(&message));
  synchronize();  // requests of a client that disconnects with unread events are lost
}

void TestDesktop::synchronize() const {
  std::free(xcb_get_input_focus_reply(connection(), xcb_get_input_focus(connection()), nullptr));
}

}  // namespace TestSupport

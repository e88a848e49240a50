#include "Tests/Support/PageServer.h"

#include <array>
#include <stdexcept>
#include <string_view>

#include "Tests/Support/GIOHandles.h"

namespace TestSupport {

namespace {

using DesktopSupport::MainContextHandle;

/// The header of a request, or "" if there is none.
std::string request(GInputStream* input) {
  constexpr std::string_view end = "\r\n\r\n";
  std::string header;
  std::array<char, 4096> bytes{};
  while (!header.ends_with(end)) {
    const gssize count = g_input_stream_read(input, bytes.data(), bytes.size(), nullptr, nullptr);
    if (count <= 0)
      return {};
    header.append(bytes.data(), static_cast<std::size_t>(count));
  }
  return header;
}

constexpr std::string_view script = R"(
<script>
  onkeypress = event => {
    if (event.key === 'Enter')
      location.pathname += '1';
    else
      document.title += event.key;
  };
</script>)";

/// The answer to "GET /name HTTP/1.1 …".
std::string answer(std::string_view request) {
  const std::string_view path = request.substr(request.find('/') + 1);
  const std::string name(path.substr(0, path.find(' ')));
  const std::string page =
      "<!doctype html><meta charset=utf-8><title>Page " + name + "</title><p>" + name + std::string(script);
  return "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nConnection: close\r\nContent-Length: " +
         std::to_string(page.size()) + "\r\n\r\n" + page;
}

gboolean serve(GThreadedSocketService* /*service*/, GSocketConnection* connection, GObject* /*source*/,
               gpointer /*data*/) {
  auto* stream = G_IO_STREAM(connection);
  const std::string header = request(g_io_stream_get_input_stream(stream));
  if (header.empty())
    return TRUE;
  const std::string text = answer(header);
  g_output_stream_write_all(g_io_stream_get_output_stream(stream), text.data(), text.size(), nullptr, nullptr, nullptr);
  return TRUE;
}

}  // namespace

PageServer::PageServer() : context_(g_main_context_new()) {
  constexpr int atOnce = 64;
  // GLib accepts connections in the context that is the thread's default when the port is opened.
  g_main_context_push_thread_default(context_.get());
  service_.reset(g_threaded_socket_service_new(atOnce));
  g_signal_connect(service_.get(), "run", G_CALLBACK(serve), nullptr);
  const ObjectHandle<GSocketAddress> local(g_inet_socket_address_new_from_string("127.0.0.1", 0));
  GSocketAddress* address = nullptr;
  g_socket_listener_add_address(G_SOCKET_LISTENER(service_.get()), local.get(), G_SOCKET_TYPE_STREAM,
                                G_SOCKET_PROTOCOL_TCP, nullptr, &address, nullptr);
  g_main_context_pop_thread_default(context_.get());
  const ObjectHandle<GSocketAddress> owner(address);
  if (!owner)
    throw std::runtime_error("no port for a web server");
  address_ = "http://127.0.0.1:" + std::to_string(g_inet_socket_address_get_port(G_INET_SOCKET_ADDRESS(address))) + '/';
  thread_.emplace(context_.get());
}

PageServer::~PageServer() {
  thread_.reset();
  g_socket_service_stop(service_.get());
  // Cancels waiting for connections, which frees their memory. If another thread stops the service, GLib leaks some.
  while (g_main_context_iteration(context_.get(), /*may_block=*/FALSE) != FALSE) {
  }
}

std::string PageServer::url(const std::string& name) const {
  return address_ + name;
}

}  // namespace TestSupport

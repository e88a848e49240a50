// A browser's proxy on the loopback interface; it prints its port. It serves the pages in a file, which has the address
// and the title of a page on each line with a tab character between them. A request to the server itself for /json/list
// is answered with the text of another file, as by a browser's DevTools.

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <unordered_map>

#include "DesktopSupport/System/GLibHandles.h"
#include "Tests/Support/GIOHandles.h"

namespace {

using DesktopSupport::CharsHandle;
using TestSupport::ObjectHandle;

struct Pages {
  std::unordered_map<std::string, std::string> titles;
  std::string tabList;
};

std::string readAll(const char* file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::unordered_map<std::string, std::string> readTitles(const char* file) {
  std::unordered_map<std::string, std::string> titles;
  std::ifstream lines(file);
  for (std::string address, title; std::getline(lines, address, '\t') && std::getline(lines, title);)
    titles[address] = title;
  return titles;
}

std::string nextLine(GDataInputStream* input) {
  const CharsHandle line(g_data_input_stream_read_line(input, nullptr, nullptr, nullptr));
  return line ? line.get() : "";
}

/// The target of a request: the second word of the first line.
std::string requestedTarget(GDataInputStream* input) {
  const std::string request = nextLine(input);
  while (!nextLine(input).empty())
    continue;
  const std::size_t start = request.find(' ') + 1;
  return request.substr(start, request.find(' ', start) - start);
}

std::string escaped(const std::string& text) {
  return CharsHandle(g_markup_escape_text(text.c_str(), -1)).get();
}

std::string response(std::string_view status, std::string_view type, std::string_view body) {
  return "HTTP/1.1 " + std::string(status) + "\r\nContent-Type: " + std::string(type) +
         "; charset=UTF-8\r\nContent-Length: " + std::to_string(body.size()) + "\r\nConnection: close\r\n\r\n" +
         std::string(body);
}

std::string answer(const std::string& target, const Pages& pages) {
  if (target == "/json/list")
    return pages.tabList;
  const auto page = pages.titles.find(target);
  if (page == pages.titles.end())
    return response("404 Not Found", "text/plain", "");
  return response("200 OK", "text/html", "<!DOCTYPE html><title>" + escaped(page->second) + "</title>");
}

gboolean serve(GThreadedSocketService* /*service*/, GSocketConnection* connection, GObject* /*source*/, gpointer data) {
  GIOStream* stream = G_IO_STREAM(connection);
  const ObjectHandle<GDataInputStream> input(g_data_input_stream_new(g_io_stream_get_input_stream(stream)));
  g_data_input_stream_set_newline_type(input.get(), G_DATA_STREAM_NEWLINE_TYPE_CR_LF);
  const std::string text = answer(requestedTarget(input.get()), *static_cast<const Pages*>(data));
  g_output_stream_write_all(g_io_stream_get_output_stream(stream), text.data(), text.size(), nullptr, nullptr, nullptr);
  return TRUE;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "Usage: %s PAGES TAB-LIST\n", argv[0]);
    return 2;
  }
  constexpr int anyNumberOfThreads = -1;  // browsers open connections before they need them
  Pages pages = {.titles = readTitles(argv[1]), .tabList = response("200 OK", "application/json", readAll(argv[2]))};
  const ObjectHandle<GSocketService> service(g_threaded_socket_service_new(anyNumberOfThreads));
  const ObjectHandle<GInetAddress> loopback(g_inet_address_new_loopback(G_SOCKET_FAMILY_IPV4));
  const ObjectHandle<GSocketAddress> anyPort(g_inet_socket_address_new(loopback.get(), 0));
  GSocketAddress* bound = nullptr;
  if (g_socket_listener_add_address(G_SOCKET_LISTENER(service.get()), anyPort.get(), G_SOCKET_TYPE_STREAM,
                                    G_SOCKET_PROTOCOL_TCP, nullptr, &bound, nullptr) == FALSE)
    return EXIT_FAILURE;
  const ObjectHandle<GSocketAddress> address(bound);
  g_signal_connect(service.get(), "run", G_CALLBACK(serve), &pages);
  g_socket_service_start(service.get());
  std::printf("%d\n", g_inet_socket_address_get_port(G_INET_SOCKET_ADDRESS(bound)));
  std::fflush(stdout);
  g_main_loop_run(g_main_loop_new(nullptr, FALSE));
}

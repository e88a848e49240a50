// Starts the companion's program as a browser does, and plays the extension: it answers each request with the pages in
// a list as a browser's DevTools give it. Prints a line when the program has been started, and runs until it is killed.

#include <cstdint>
#include <cstdio>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "Tests/Support/GIOHandles.h"

namespace {

using nlohmann::json;
using TestSupport::ObjectHandle;

/// About the length of a message of the extension, in bytes.
constexpr std::size_t messageSize = 256 << 10;

/// The tabs of one window, in JSON texts that each fit into a message.
std::vector<std::string> tabsIn(const char* file) {
  std::vector<std::string> parts(1);
  std::ifstream stream(file);
  bool isActive = true;
  for (const json& page : json::parse(stream)) {
    if (page["type"] != "page")
      continue;
    if (parts.back().size() > messageSize)
      parts.emplace_back();
    parts.back() +=
        (isActive ? "a\n" : "\n") + page["title"].get<std::string>() + '\n' + page["url"].get<std::string>() + '\n';
    isActive = false;
  }
  for (std::string& part : parts)
    part = json(part).dump();
  return parts;
}

void write(GOutputStream* port, const std::string& message) {
  const auto length = static_cast<std::uint32_t>(message.size());
  const std::string bytes = std::string(reinterpret_cast<const char*>(&length), sizeof length) + message;
  g_output_stream_write_all(port, bytes.data(), bytes.size(), nullptr, nullptr, nullptr);
}

/// The number of the next request; 0 at the end.
int nextRequest(GInputStream* port) {
  std::uint32_t length = 0;
  gsize count = 0;
  g_input_stream_read_all(port, &length, sizeof length, &count, nullptr, nullptr);
  if (count < sizeof length)
    return 0;
  std::string message(length, '\0');
  g_input_stream_read_all(port, message.data(), length, &count, nullptr, nullptr);
  return json::parse(message)["list"];
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "Usage: %s GLEANERY-TABS TAB-LIST\n", argv[0]);
    return 2;
  }
  const auto parts = tabsIn(argv[2]);
  constexpr auto pipes = static_cast<GSubprocessFlags>(G_SUBPROCESS_FLAGS_STDIN_PIPE | G_SUBPROCESS_FLAGS_STDOUT_PIPE);
  const ObjectHandle<GSubprocess> program(g_subprocess_new(pipes, nullptr, argv[1], "played", nullptr));
  if (!program)
    return 1;
  GOutputStream* const toProgram = g_subprocess_get_stdin_pipe(program.get());
  write(toProgram, R"({"version": 1})");
  std::puts("ready");
  std::fflush(stdout);
  while (const int request = nextRequest(g_subprocess_get_stdout_pipe(program.get())))
    for (const std::string& part : parts)
      write(toProgram, "{\"answer\":" + std::to_string(request) +
                           R"(,"windows":[{"id":1,"type":"normal","focused":false,"tabs":)" + part +
                           "}],\"isLast\":" + (&part == &parts.back() ? "true" : "false") + '}');
  return 0;
}

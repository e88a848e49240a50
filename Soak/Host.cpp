#include "Soak/Host.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>

#include <fcntl.h>
#include <glib-unix.h>
#include <unistd.h>

#include "DesktopSupport/Bus/BusDaemon.h"
#include "DesktopSupport/System/FileDescriptor.h"
#include "HostStandIn/ApplicationInterface.h"
#include "HostStandIn/BusName.h"
#include "HostStandIn/ScriptingCommands.h"
#include "HostStandIn/ScriptingInterface.h"
#include "Tests/Support/GIOHandles.h"

namespace Soak {

namespace {

using DesktopSupport::SessionBus;

constexpr const char* hostName = "com.quillary.Deskloom";
constexpr std::chrono::seconds answerTime{25};

std::filesystem::path recordFile() {
  return std::filesystem::path(std::getenv("XDG_RUNTIME_DIR")) / "soak-received";
}

/// Whether the payload is the alphabet, repeated.
bool isWhole(std::string_view payload) {
  for (std::size_t index = 0; index < payload.size(); ++index)
    if (payload[index] != static_cast<char>('a' + index % 26))
      return false;
  return true;
}

std::string lineFor(const std::string& url) {
  if (!url.starts_with(payloadURL))
    return url;
  const auto payload = std::string_view(url).substr(payloadURL.size());
  return isWhole(payload) ? payloadLine(payload.size()) : "a payload of other bytes";
}

class Record {
 public:
  Record() : file_(open(recordFile().c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600)) {}

  void add(const std::string& url) const {
    const std::string line = lineFor(url) + '\n';
    if (write(file_.number(), line.data(), line.size()) != static_cast<ssize_t>(line.size()))
      std::abort();
  }

 private:
  DesktopSupport::FileDescriptor file_;
};

void awaitTermination() {
  bool isOver = false;
  g_unix_signal_add(
      SIGTERM,
      [](gpointer flag) -> gboolean {
        *static_cast<bool*>(flag) = true;
        return G_SOURCE_CONTINUE;
      },
      &isOver);
  while (!isOver)
    g_main_context_iteration(nullptr, /*may_block=*/TRUE);
}

/// Receives everything sent to the name, which has just been given up.
void receiveTheRest(const SessionBus& bus) {
  DesktopSupport::BusDaemon(bus, answerTime).synchronize();
  while (g_main_context_iteration(nullptr, /*may_block=*/FALSE)) {
  }
  DesktopSupport::BusDaemon(bus, answerTime).synchronize();
}

}  // namespace

int beHost() {
  const auto bus = SessionBus::connect();
  if (!bus)
    return 1;
  const Record record;
  HostStandIn::ScriptingCommands commands({.pluginFolder = "/", .isInstalled = true});
  const HostStandIn::ApplicationInterface application(*bus, [&record](const std::string& url) { record.add(url); });
  const HostStandIn::ScriptingInterface scripting(*bus, commands, [] {});
  {
    const auto name = HostStandIn::BusName::acquire(*bus, hostName);
    if (!name)
      return 1;
    awaitTermination();
  }
  receiveTheRest(*bus);
  return 0;
}

std::string payloadLine(std::size_t bytes) {
  return "a payload of " + std::to_string(bytes) + " bytes";
}

void Hosts::start() {
  std::erase_if(started_, [](const auto& host) { return host->endsWithin(std::chrono::milliseconds(0)); });
  started_.push_back(std::make_unique<Process>(std::vector<std::string>{"/proc/self/exe", hostOption}));
}

void Hosts::end() {
  const auto process = bus_.ownerOf(hostName);
  if (!process)
    return;
  const ProcessEnd end(*process);
  kill(*process, SIGTERM);
  static_cast<void>(end.isWithin(answerTime));
}

std::vector<std::string> Hosts::received() {
  end();
  std::ifstream record(recordFile());
  std::vector<std::string> lines;
  for (std::string line; std::getline(record, line);)
    lines.push_back(std::move(line));
  return lines;
}

}  // namespace Soak

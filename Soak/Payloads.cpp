#include <algorithm>
#include <fstream>
#include <iomanip>

#include "DesktopSupport/Bus/ApplicationBus.h"
#include "Soak/Host.h"
#include "Soak/Process.h"
#include "Soak/Scenarios.h"

namespace Soak {

namespace {

constexpr std::size_t mebibyte = 1UL << 20;
constexpr std::size_t longestPayload = DesktopSupport::longestOpenURL - payloadURL.size();
constexpr double mostMemory = 3;
/// The size of everything else in a launch with a payload, in bytes.
constexpr double mostBeside = 128 << 10;

/// Has the plug-in send a payload, and returns its peak memory in bytes.
double send(std::size_t bytes, Report& report) {
  Process process({soakPlugin.program, "deskloomplugin://run/payload=" + std::to_string(bytes) + "+quit"});
  report.demand(process.endsWithin(timeToEnd), "the launch with " + std::to_string(bytes) + " bytes never ends");
  process.send(SIGKILL);
  const auto end = process.wait();
  report.demand(end.status == 0, "the launch with " + std::to_string(bytes) + " bytes failed");
  return static_cast<double>(end.peakMemory);
}

bool logSays(const std::string& text) {
  std::ifstream log(Process::log());
  for (std::string line; std::getline(log, line);)
    if (line.find(text) != std::string::npos)
      return true;
  return false;
}

}  // namespace

Report payloads(const Settings& /*settings*/) {
  Report report;
  std::vector<std::size_t> sizes = {1, 2, 4, 8, 16, 32, 63};
  std::ranges::transform(sizes, sizes.begin(), [](std::size_t size) { return size * mebibyte; });
  sizes.push_back(longestPayload);

  double most = 0;  // beyond three times the payload, in bytes
  const double empty = send(0, report);
  report.figures() << std::fixed << std::setprecision(2) << "peak memory beyond the " << empty / mebibyte
                   << " MiB of a launch, in proportion to the payload:";
  for (const std::size_t size : sizes) {
    const auto payload = static_cast<double>(size);
    const double memory = send(size, report) - empty;
    report.figures() << ' ' << memory / payload << " (" << payload / mebibyte << " MiB)";
    most = std::max(most, memory - mostMemory * payload);
  }
  report.demand(most <= mostBeside, "more memory than three times the payload");
  send(longestPayload + 1, report);
  report.demand(logSays(std::to_string(DesktopSupport::longestOpenURL + 1) + " bytes"), "no line in the log");

  const auto received = Hosts().received();
  for (const std::size_t size : sizes)
    report.demand(std::ranges::count(received, payloadLine(size)) == 1, payloadLine(size) + " did not arrive");
  report.demandNone(received.size() - std::min(received.size(), sizes.size() + 1), "too many");
  return report;
}

}  // namespace Soak

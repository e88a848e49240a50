#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Soak/Bus.h"
#include "Soak/Process.h"

namespace Soak {

inline constexpr std::string_view payloadURL = "deskloom://payload/";

/// The argument that makes this program run as the host.
inline constexpr const char* hostOption = "--host";

/// Runs as the host until SIGTERM, and returns the exit status. Appends each URL that it receives, as a line, to a file
/// that all hosts of the desktop share; for a payload the line says only whether it is whole (`payloadLine`). Ends as
/// an application should: it gives up its name, and then records what was sent to it before that.
int beHost();

/// The line for a payload of this many bytes that arrived whole.
std::string payloadLine(std::size_t bytes);

/// The hosts of this desktop, one at a time. The bus starts one when it is needed.
class Hosts {
 public:
  /// Starts a host without the bus.
  void start();

  /// Ends the running host, if there is one, and waits for its end.
  void end();

  /// The lines of all hosts so far. Ends the running one.
  [[nodiscard]] std::vector<std::string> received();

 private:
  Bus bus_;
  std::vector<std::unique_ptr<Process>> started_;
};

}  // namespace Soak

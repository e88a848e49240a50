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

/// The command line's word for a process that is the host.
inline constexpr const char* hostOption = "--host";

/// Is the host, until SIGTERM: notes each URL that it receives, as one line, in a file that all hosts of the desktop
/// append to. Of a payload it notes only whether it is whole (`payloadLine`). Ends as an application should: it gives
/// up its name, and then notes what had been sent to it before. Yields the exit status.
int beHost();

/// The line that notes a payload of so many bytes which has arrived as it was sent.
std::string payloadLine(std::size_t bytes);

/// The hosts of this desktop: one at a time, which the bus starts when it is needed.
class Hosts {
 public:
  /// Starts a host, as somebody does who doesn't leave it to the bus.
  void start();

  /// Ends the host that runs, if there is one, and waits for its end.
  void end();

  /// The lines that all hosts so far have noted. Ends the one that runs.
  [[nodiscard]] std::vector<std::string> received();

 private:
  Bus bus_;
  std::vector<std::unique_ptr<Process>> started_;
};

}  // namespace Soak

#include "DesktopSupport/Windows/WindowProcess.h"

#include <array>
#include <limits>
#include <string_view>

#include <unistd.h>

namespace DesktopSupport {

namespace {

std::string_view withoutDomain(std::string_view name) {
  return name.substr(0, name.find('.'));
}

// Either may be written with its domain or without.
bool isSameHost(std::string_view one, std::string_view other) {
  const bool haveBothDomains = one.contains('.') && other.contains('.');
  return !one.empty() && (haveBothDomains ? one == other : withoutDomain(one) == withoutDomain(other));
}

}  // namespace

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

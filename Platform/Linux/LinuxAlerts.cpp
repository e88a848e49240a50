#include "Platform/Linux/LinuxAlerts.h"

namespace Platform::Linux {

void LinuxAlerts::runModal(const Alert& alert) {
  log_.write(alert.messageText);
  if (!alert.informativeText.empty())
    log_.write(alert.informativeText);
}

}  // namespace Platform::Linux

#pragma once

#include "Platform/Alerts.h"
#include "Platform/Log.h"

namespace Platform::Linux {

/// Tells the user through the log and standard error, and goes on as if the alert had been dismissed.
class LinuxAlerts : public Alerts {
 public:
  explicit LinuxAlerts(Log& log) : log_(log) {}

  void runModal(const Alert& alert) override;

 private:
  Log& log_;
};

}  // namespace Platform::Linux

#pragma once

#include "Linux/LinuxApplication.h"
#include "Linux/WindowModule.h"
#include "Platform/Alerts.h"
#include "Platform/Log.h"
#include "Platform/Strings.h"

namespace Platform::Linux {

/// Shows alerts on the screen, one at a time, and runs the main context until the user has dismissed them or the
/// application is asked to terminate. If nothing can be shown, or the application is terminating, writes their texts to
/// the log and standard error, and goes on as if they had been dismissed. For the main thread alone.
class LinuxAlerts : public Alerts {
 public:
  LinuxAlerts(WindowModule& module, const LinuxApplication& application, Strings& strings, Log& log)
      : module_(module), application_(application), strings_(strings), log_(log) {}

  void runModal(const Alert& alert) override;

 private:
  void awaitDismissal(const AlertPanel& panel) const;
  void tell(const Alert& alert, const std::string& reason);

  WindowModule& module_;
  const LinuxApplication& application_;
  Strings& strings_;
  Log& log_;
  const AlertPanel* shown_ = nullptr;
};

}  // namespace Platform::Linux

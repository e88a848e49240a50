#pragma once

#include "Linux/Application.h"
#include "Linux/WindowModule.h"
#include "Platform/Alerts.h"
#include "Platform/Log.h"
#include "Platform/Strings.h"

namespace Linux {

/// Shows alerts on the screen, one at a time, and runs the main context until the user has dismissed them or the
/// application is asked to terminate. If nothing can be shown, or the application is terminating, writes their texts to
/// the log and standard error, and goes on as if they had been dismissed. For the main thread alone.
class Alerts : public Platform::Alerts {
 public:
  Alerts(WindowModule& module, const Application& application, Platform::Strings& strings, Platform::Log& log)
      : module_(module), application_(application), strings_(strings), log_(log) {}

  void runModal(const Platform::Alert& alert) override;

 private:
  void awaitDismissal(const AlertPanel& panel) const;
  void tell(const Platform::Alert& alert, const std::string& reason);

  WindowModule& module_;
  const Application& application_;
  Platform::Strings& strings_;
  Platform::Log& log_;
  const AlertPanel* shown_ = nullptr;
};

}  // namespace Linux

#pragma once

#include <string>
#include <vector>

#include "Platform/Error.h"

namespace Platform {

/// A message to the user (NSAlert).
struct Alert {
  /// What has happened, in a sentence.
  std::string messageText;
  /// More about it, or what to do; empty where there is nothing to say.
  std::string informativeText = {};
  /// The titles of the buttons; where there are none, the platform's single default button is shown.
  std::vector<std::string> buttons = {};

  /// The alert that reports an error (alertWithError:): its localised description as the message.
  static Alert withError(const Error& error) { return {.messageText = error.localizedDescription()}; }
};

/// Shows alerts.
class Alerts {
 public:
  virtual ~Alerts() = default;

  /// Shows the alert and waits until the user dismisses it (runModal) or the application is asked to terminate. While
  /// the application terminates, no alert is shown.
  virtual void runModal(const Alert& alert) = 0;
};

}  // namespace Platform

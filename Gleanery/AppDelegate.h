#pragma once

#include "Platform/AppleEvent.h"
#include "Platform/ApplicationDelegate.h"

namespace Gleanery {

/// Connects the runtime to what this application does: made by the application main routine, before launching finishes.
class AppDelegate : public Platform::ApplicationDelegate {
 public:
  /// Installs the action handlers and becomes the handler of launch URLs.
  AppDelegate();

  void applicationDidFinishLaunching(const Platform::Notification& notification) override;

  /// Passes a URL event to the runtime; the reply is not used.
  void handleGetURLEvent(const Platform::AppleEvent& event, Platform::AppleEvent& replyEvent);
};

}  // namespace Gleanery

#pragma once

#include "DeskloomSDK/DeskloomPlugin.h"
#include "Platform/AppleEvents.h"
#include "Platform/Application.h"
#include "Platform/Lifetime.h"

namespace DeskloomSDK {

/// The base of a plug-in's application delegate. `connect` is all that it takes to receive the host's launch URLs.
class PluginDelegate : public Platform::ApplicationDelegate {
 public:
  /// Does nothing. A plug-in that has something to do then overrides it.
  void applicationDidFinishLaunching(const Platform::Notification& notification) override;

  /// Passes a URL event to the action controller of the connected plug-in, if there is one. The reply is not used.
  void handleGetURLEvent(const Platform::AppleEvent& event, Platform::AppleEvent& replyEvent);

 protected:
  PluginDelegate() = default;

  /// Becomes the handler of launch URLs for as long as the delegate lives. The plug-in must live as long.
  void connect(DeskloomPlugin& plugin);

 private:
  DeskloomPlugin* plugin_ = nullptr;
  Platform::Lifetime lifetime_;
};

}  // namespace DeskloomSDK

#pragma once

#include <functional>
#include <map>
#include <utility>

#include "Platform/AppleEvent.h"

namespace Platform {

/// Passes Apple events to whoever handles their kind (NSAppleEventManager). For the main thread alone.
class AppleEventManager {
 public:
  /// Handles an event; what it puts into the reply is not looked at.
  using Handler = std::function<void(const AppleEvent& event, AppleEvent& replyEvent)>;

  /// Makes `handler` the one handler of these events, in place of an earlier one (setEventHandler:…).
  void setEventHandler(FourCharCode eventClass, FourCharCode eventID, Handler handler);

  /// Calls the event's handler, and returns when it has. An event that nobody handles is dropped.
  void dispatch(const AppleEvent& event) const;

 private:
  std::map<std::pair<FourCharCode, FourCharCode>, Handler> handlers_;
};

}  // namespace Platform

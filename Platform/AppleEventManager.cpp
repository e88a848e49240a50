#include "Platform/AppleEventManager.h"

namespace Platform {

void AppleEventManager::setEventHandler(FourCharCode eventClass, FourCharCode eventID, Handler handler) {
  handlers_.insert_or_assign({eventClass, eventID}, std::move(handler));
}

void AppleEventManager::dispatch(const AppleEvent& event) const {
  const auto found = handlers_.find({event.eventClass(), event.eventID()});
  if (found == handlers_.end())
    return;
  const Handler handler = found->second;  // a handler may replace itself
  AppleEvent replyEvent(event.eventClass(), event.eventID());
  handler(event, replyEvent);
}

}  // namespace Platform

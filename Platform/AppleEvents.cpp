#include "Platform/AppleEvents.h"

namespace Platform {

AppleEvent AppleEvent::getURL(std::string text) {
  AppleEvent event(internetEventClass, getURLEventID);
  event.setParamDescriptor(keyDirectObject, {std::move(text)});
  return event;
}

void AppleEvent::setParamDescriptor(FourCharCode keyword, AppleEventDescriptor descriptor) {
  parameters_.insert_or_assign(keyword, std::move(descriptor));
}

const AppleEventDescriptor* AppleEvent::paramDescriptor(FourCharCode keyword) const {
  const auto found = parameters_.find(keyword);
  return found == parameters_.end() ? nullptr : &found->second;
}

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

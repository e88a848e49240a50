#include "Platform/AppleEvent.h"

#include <utility>

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

}  // namespace Platform

#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>

namespace Platform {

/// A four-character code: 'GURL', '----'.
using FourCharCode = std::uint32_t;

/// The code of these four characters, the first one in the highest byte.
constexpr FourCharCode fourCharCode(const char (&text)[5]) {
  FourCharCode code = 0;
  for (int i = 0; i < 4; ++i)
    code = code << 8 | static_cast<unsigned char>(text[i]);
  return code;
}

/// The keyword of the parameter that an event is about: a launch URL's text.
inline constexpr FourCharCode keyDirectObject = fourCharCode("----");
/// The class of the events that carry launch URLs (kInternetEventClass).
inline constexpr FourCharCode internetEventClass = fourCharCode("GURL");
/// Their identifier within the class (kAEGetURL).
inline constexpr FourCharCode getURLEventID = fourCharCode("GURL");

/// A value inside an Apple event (NSAppleEventDescriptor).
struct AppleEventDescriptor {
  /// The value as text; `nullopt` if it is not text.
  std::optional<std::string> stringValue;
};

/// A message to the application (NSAppleEventDescriptor of an event): its class and identifier, and its parameters by
/// keyword.
class AppleEvent {
 public:
  /// An event without parameters.
  AppleEvent(FourCharCode eventClass, FourCharCode eventID) : eventClass_(eventClass), eventID_(eventID) {}

  /// The event that carries a launch URL. Its text is whatever was sent, unchecked.
  static AppleEvent getURL(std::string text);

  /// The suite of events that this one belongs to.
  [[nodiscard]] FourCharCode eventClass() const { return eventClass_; }
  /// Which event of its class this is.
  [[nodiscard]] FourCharCode eventID() const { return eventID_; }

  /// Sets a parameter, replacing an earlier one with this keyword (setParamDescriptor:forKeyword:).
  void setParamDescriptor(FourCharCode keyword, AppleEventDescriptor descriptor);

  /// The parameter with this keyword (paramDescriptorForKeyword:); null if there is none.
  [[nodiscard]] const AppleEventDescriptor* paramDescriptor(FourCharCode keyword) const;

 private:
  FourCharCode eventClass_;
  FourCharCode eventID_;
  std::map<FourCharCode, AppleEventDescriptor> parameters_;
};

/// Passes Apple events to their handlers (NSAppleEventManager). For the main thread alone.
class AppleEventManager {
 public:
  /// Handles an event. The reply is ignored.
  using Handler = std::function<void(const AppleEvent& event, AppleEvent& replyEvent)>;

  /// Sets the handler of these events, replacing an earlier one (setEventHandler:…).
  void setEventHandler(FourCharCode eventClass, FourCharCode eventID, Handler handler);

  /// Calls the event's handler and returns when it has returned. An event without a handler is dropped.
  void dispatch(const AppleEvent& event) const;

 private:
  std::map<std::pair<FourCharCode, FourCharCode>, Handler> handlers_;
};

}  // namespace Platform

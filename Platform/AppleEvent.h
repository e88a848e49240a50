#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

namespace Platform {

/// A four-character code: 'GURL', '----'.
using FourCharCode = std::uint32_t;

/// The code that these four characters spell, the first one in the highest byte.
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
  /// The value as text; none in one that is not text.
  std::optional<std::string> stringValue;
};

/// A message to the application (NSAppleEventDescriptor of an event): who it is for, and its parameters by keyword.
class AppleEvent {
 public:
  /// An event without parameters.
  AppleEvent(FourCharCode eventClass, FourCharCode eventID) : eventClass_(eventClass), eventID_(eventID) {}

  /// The event that carries a launch URL; its text is whatever was sent, not looked at.
  static AppleEvent getURL(std::string text);

  /// The suite of events that this is one of.
  [[nodiscard]] FourCharCode eventClass() const { return eventClass_; }
  /// Which event of its class it is.
  [[nodiscard]] FourCharCode eventID() const { return eventID_; }

  /// Gives the event a parameter, in place of an earlier one of this keyword (setParamDescriptor:forKeyword:).
  void setParamDescriptor(FourCharCode keyword, AppleEventDescriptor descriptor);

  /// The parameter of this keyword (paramDescriptorForKeyword:); null where the event has none.
  [[nodiscard]] const AppleEventDescriptor* paramDescriptor(FourCharCode keyword) const;

 private:
  FourCharCode eventClass_;
  FourCharCode eventID_;
  std::map<FourCharCode, AppleEventDescriptor> parameters_;
};

}  // namespace Platform

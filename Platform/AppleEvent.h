#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

namespace Platform {

/// A four-character code: 'GURL', '----'.
using FourCharCode = std::uint32_t;

constexpr FourCharCode fourCharCode(const char (&text)[5]) {
  FourCharCode code = 0;
  for (int i = 0; i < 4; ++i)
    code = code << 8 | static_cast<unsigned char>(text[i]);
  return code;
}

inline constexpr FourCharCode keyDirectObject = fourCharCode("----");
inline constexpr FourCharCode internetEventClass = fourCharCode("GURL");
inline constexpr FourCharCode getURLEventID = fourCharCode("GURL");

/// A value inside an Apple event (NSAppleEventDescriptor); `stringValue` is absent in one that is not text.
struct AppleEventDescriptor {
  std::optional<std::string> stringValue;
};

/// A message to the application (NSAppleEventDescriptor of an event): who it is for, and its parameters by keyword.
class AppleEvent {
 public:
  AppleEvent(FourCharCode eventClass, FourCharCode eventID) : eventClass_(eventClass), eventID_(eventID) {}

  /// The event that carries a launch URL; its text is whatever was sent, not looked at.
  static AppleEvent getURL(std::string text);

  [[nodiscard]] FourCharCode eventClass() const { return eventClass_; }
  [[nodiscard]] FourCharCode eventID() const { return eventID_; }

  void setParamDescriptor(FourCharCode keyword, AppleEventDescriptor descriptor);

  /// The parameter of this keyword (paramDescriptorForKeyword:); null where the event has none.
  [[nodiscard]] const AppleEventDescriptor* paramDescriptor(FourCharCode keyword) const;

 private:
  FourCharCode eventClass_;
  FourCharCode eventID_;
  std::map<FourCharCode, AppleEventDescriptor> parameters_;
};

}  // namespace Platform

#pragma once

#include <cstdint>
#include <expected>
#include <string>
#include <variant>
#include <vector>

#include "BrowserSessions/Companion/CompanionAnswer.h"

namespace BrowserCompanion {

/// The form of the extension's messages that this program understands.
inline constexpr std::int64_t messageVersion = 1;

/// The extension's first message.
struct Greeting {
  std::int64_t version = 0;

  bool operator==(const Greeting&) const = default;
};

/// A part of the answer to a request. A window that continues the one before it has the same number.
struct AnswerPart {
  std::int64_t request = 0;
  std::vector<BrowserSessions::CompanionWindow> windows;
  bool isLast = false;

  bool operator==(const AnswerPart&) const = default;
};

/// The browser could not answer a request.
struct Refusal {
  std::int64_t request = 0;
  std::string reason;

  bool operator==(const Refusal&) const = default;
};

using ExtensionMessage = std::variant<Greeting, AnswerPart, Refusal>;

/// Reads a message of the extension. A surrogate without its partner becomes U+FFFD. Fails with a sentence if the text
/// is not JSON or not such a message.
std::expected<ExtensionMessage, std::string> extensionMessage(std::string json);

/// The message that asks the extension for the windows.
std::string requestMessage(std::int64_t request);

/// The message that tells the extension why it is not served.
std::string refusalMessage(const std::string& reason);

}  // namespace BrowserCompanion

#pragma once

#include <cstddef>
#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <string_view>

#include "DesktopSupport/Bus/BusError.h"
#include "DesktopSupport/System/GLibHandles.h"

namespace DesktopSupport {

/// A message on a bus. A text that it does not have is empty.
struct BusMessage {
  /// The protocol's own numbers. There may be others, which are to be ignored.
  enum class Type : std::uint8_t { call = 1, answer = 2, error = 3, signal = 4 };

  Type type = Type::call;
  bool wantsAnswer = true;
  /// Whether the bus may start the program that it is for.
  bool mayActivate = false;
  std::uint32_t serial = 0;
  /// The serial of the call that this answers; 0 for other messages.
  std::uint32_t answeredSerial = 0;
  std::string destination = {};
  std::string path = {};
  std::string interface = {};
  std::string member = {};
  std::string errorName = {};
  std::string sender = {};
  /// A tuple; null if there are no arguments.
  VariantHandle arguments = nullptr;
};

/// How many bytes of a message tell its size.
inline constexpr std::size_t busMessageStart = 16;

/// The size of the message that begins with these bytes, at least `busMessageStart`. `nullopt` if no message does, or
/// it is longer than D-Bus allows.
std::optional<std::size_t> busMessageSize(std::string_view start);

/// The message as D-Bus transmits it. Fails with `invalidArguments` if D-Bus does not allow its names or cannot carry
/// its arguments.
std::expected<std::string, BusError> encoded(const BusMessage& message);

/// The message that these bytes, all of `busMessageSize`, are; `nullopt` if they are none.
std::optional<BusMessage> decodedMessage(std::string_view bytes);

/// The error that an error message tells. Its text is `displayable`.
BusError errorIn(const BusMessage& message);

}  // namespace DesktopSupport

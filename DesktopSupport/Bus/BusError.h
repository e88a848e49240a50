#pragma once

#include <expected>
#include <string>
#include <string_view>

#include "DesktopSupport/System/GLibHandles.h"

namespace DesktopSupport {

/// Why a call over D-Bus failed.
struct BusError {
  /// The D-Bus error name: one of `BusErrorName`, or the callee's own.
  std::string name;
  std::string message;
};

/// The error names that callers tell apart. They are the same whether the bus, the callee or this process failed.
namespace BusErrorName {
inline constexpr std::string_view failed = "org.freedesktop.DBus.Error.Failed";
inline constexpr std::string_view noServer = "org.freedesktop.DBus.Error.NoServer";
inline constexpr std::string_view disconnected = "org.freedesktop.DBus.Error.Disconnected";
inline constexpr std::string_view serviceUnknown = "org.freedesktop.DBus.Error.ServiceUnknown";
inline constexpr std::string_view nameHasNoOwner = "org.freedesktop.DBus.Error.NameHasNoOwner";
inline constexpr std::string_view noReply = "org.freedesktop.DBus.Error.NoReply";
inline constexpr std::string_view timeout = "org.freedesktop.DBus.Error.Timeout";
inline constexpr std::string_view invalidArguments = "org.freedesktop.DBus.Error.InvalidArgs";
inline constexpr std::string_view invalidSignature = "org.freedesktop.DBus.Error.InvalidSignature";
inline constexpr std::string_view unknownMethod = "org.freedesktop.DBus.Error.UnknownMethod";
inline constexpr std::string_view accessDenied = "org.freedesktop.DBus.Error.AccessDenied";
inline constexpr std::string_view notSupported = "org.freedesktop.DBus.Error.NotSupported";
inline constexpr std::string_view limitsExceeded = "org.freedesktop.DBus.Error.LimitsExceeded";
}  // namespace BusErrorName

/// What a method answers: a tuple.
using BusAnswer = std::expected<VariantHandle, BusError>;

}  // namespace DesktopSupport

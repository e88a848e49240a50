#pragma once

#include <chrono>
#include <expected>
#include <string>
#include <string_view>

#include "DesktopSupport/System/GLibHandles.h"

namespace DesktopSupport {

/// Why a call over D-Bus failed.
struct BusError {
  /// The D-Bus error name, one of `BusErrorName` or whatever the callee chose.
  std::string name;
  std::string message;
};

/// The error names that callers tell apart; the same whether the bus, the callee or this process noticed the failure.
namespace BusErrorName {
inline constexpr std::string_view noServer = "org.freedesktop.DBus.Error.NoServer";
inline constexpr std::string_view disconnected = "org.freedesktop.DBus.Error.Disconnected";
inline constexpr std::string_view serviceUnknown = "org.freedesktop.DBus.Error.ServiceUnknown";
inline constexpr std::string_view nameHasNoOwner = "org.freedesktop.DBus.Error.NameHasNoOwner";
inline constexpr std::string_view noReply = "org.freedesktop.DBus.Error.NoReply";
inline constexpr std::string_view timeout = "org.freedesktop.DBus.Error.Timeout";
inline constexpr std::string_view invalidArguments = "org.freedesktop.DBus.Error.InvalidArgs";
inline constexpr std::string_view accessDenied = "org.freedesktop.DBus.Error.AccessDenied";
inline constexpr std::string_view notSupported = "org.freedesktop.DBus.Error.NotSupported";
inline constexpr std::string_view limitsExceeded = "org.freedesktop.DBus.Error.LimitsExceeded";
}  // namespace BusErrorName

/// The name under which D-Bus knows `error`, and its message, `displayable`, without the name GLib puts in front.
BusError busErrorFrom(const GError& error);

/// One method of an object that a program on the bus has.
struct BusMethod {
  std::string destination;
  std::string path;
  std::string interface;
  std::string name;
};

/// Whether the bus may start the program that a call is for, if it does not run.
enum class Activation { never, ifNeeded };

/// The user's session bus. There is one connection per process, made when it is first asked for; every SessionBus
/// shares it. A bus that goes away fails the calls under way and does not end the process.
class SessionBus {
 public:
  /// How long a bus is usually waited for that takes the connection and says nothing.
  static constexpr std::chrono::seconds connectTime{5};

  SessionBus(SessionBus&&) noexcept = default;
  SessionBus& operator=(SessionBus&&) noexcept = default;
  SessionBus(const SessionBus& other) : connection_(shared(other.connection())) {}
  SessionBus& operator=(const SessionBus& other) { return *this = SessionBus(other); }
  ~SessionBus() = default;

  /// Connects to the running session bus. Fails with `noServer` if there is none, or none that answers within
  /// `patience`; none is started.
  static std::expected<SessionBus, BusError> connect(std::chrono::milliseconds patience = connectTime);

  /// Calls `method` with the tuple `arguments` (none: nullptr; a floating variant is consumed) and yields the tuple
  /// that it answers, which is of type `replyType`. A destination that does not run and may not or cannot be started
  /// fails with `serviceUnknown` or `nameHasNoOwner`, and a name or path of `method` that D-Bus does not allow with
  /// `invalidArguments`. Waits for `timeout` at most, then fails with `timeout`; a
  /// destination that leaves the bus meanwhile fails with `noReply`. May be called on any thread.
  [[nodiscard]] std::expected<VariantHandle, BusError> call(const BusMethod& method, GVariant* arguments,
                                                            const GVariantType* replyType,
                                                            std::chrono::milliseconds timeout,
                                                            Activation activation = Activation::never) const;

  /// The connection itself, to own names and export objects with.
  [[nodiscard]] GDBusConnection* connection() const { return connection_.get(); }

 private:
  explicit SessionBus(ObjectHandle<GDBusConnection> connection) : connection_(std::move(connection)) {}

  ObjectHandle<GDBusConnection> connection_;
};

/// The text as a D-Bus string; fails with `invalidArguments` where it holds a NUL or is not UTF-8, which no D-Bus
/// string can.
std::expected<VariantHandle, BusError> busString(const std::string& text);

}  // namespace DesktopSupport

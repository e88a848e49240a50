#pragma once

#include <chrono>
#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

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

/// What a method answers: a tuple.
using BusAnswer = std::expected<VariantHandle, BusError>;

/// The D-Bus name of `error`, and its message, `displayable` and without the name that GLib puts before it.
BusError busErrorFrom(const GError& error);

/// A method of an object of a program on the bus.
struct BusMethod {
  std::string destination;
  std::string path;
  std::string interface;
  std::string name;
};

/// A call of a method with the tuple `arguments`, null if there are none, that answers a tuple of type `replyType`.
struct BusCall {
  BusMethod method;
  VariantHandle arguments = nullptr;
  const GVariantType* replyType = nullptr;
};

/// Whether the bus may start the program that a call is for if it is not running.
enum class Activation { never, ifNeeded };

/// The user's session bus. All of a process's objects share one connection, which the first one makes. If the bus goes
/// away, the calls under way fail; the process does not end.
class SessionBus {
 public:
  /// The usual timeout for a bus that takes the connection and does not answer.
  static constexpr std::chrono::seconds connectTime{5};

  SessionBus(SessionBus&&) noexcept = default;
  SessionBus& operator=(SessionBus&&) noexcept = default;
  SessionBus(const SessionBus& other) : connection_(shared(other.connection())) {}
  SessionBus& operator=(const SessionBus& other) { return *this = SessionBus(other); }
  ~SessionBus() = default;

  /// Connects to the running session bus. Fails with `noServer` if there is none, or it does not answer within
  /// `patience`. Starts none.
  static std::expected<SessionBus, BusError> connect(std::chrono::milliseconds patience = connectTime);

  /// Connects to another bus of the user, such as the accessibility bus, at sockets of this machine: an address that
  /// names something else, for example a command to start, is refused with `notSupported`. Fails like `connect`.
  static std::expected<SessionBus, BusError> connectTo(const std::string& address,
                                                       std::chrono::milliseconds patience = connectTime);

  /// Calls `method` with the tuple `arguments` (null if there are none; takes over a floating variant), and returns the
  /// tuple that it answers, of type `replyType`. Fails with `serviceUnknown` or `nameHasNoOwner` if the destination is
  /// not running and may not or cannot be started, with `noReply` if it leaves the bus before it answers, with
  /// `timeout` if the answer takes longer than that, and with `invalidArguments` if D-Bus does not allow a name or path
  /// in `method`. May be called on any thread.
  [[nodiscard]] BusAnswer call(const BusMethod& method, GVariant* arguments, const GVariantType* replyType,
                               std::chrono::milliseconds timeout, Activation activation = Activation::never) const;

  /// Makes all calls at once, and returns the answers in their order. Each is what `call` would return; `timeout` is
  /// for all of them together. Starts no program.
  [[nodiscard]] std::vector<BusAnswer> callAll(const std::vector<BusCall>& calls,
                                               std::chrono::milliseconds timeout) const;

  /// The connection itself, for exporting objects.
  [[nodiscard]] GDBusConnection* connection() const { return connection_.get(); }

 private:
  explicit SessionBus(ObjectHandle<GDBusConnection> connection) : connection_(std::move(connection)) {}
  template <typename Connect>
  static std::expected<SessionBus, BusError> connectWithin(std::chrono::milliseconds patience, Connect connect);

  ObjectHandle<GDBusConnection> connection_;
};

/// The number that a reply begins with, of whatever type the rest is: the replies of our own programs begin with the
/// version of their form. `nullopt` if the reply is not a tuple that begins with one of 32 bits without a sign.
std::optional<std::uint32_t> leadingNumber(GVariant* reply);

/// The text as a D-Bus string. Fails with `invalidArguments` if it holds a NUL or is not UTF-8.
std::expected<VariantHandle, BusError> busString(const std::string& text);

}  // namespace DesktopSupport

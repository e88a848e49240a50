#pragma once

#include <chrono>
#include <cstdint>
#include <expected>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "DesktopSupport/Bus/BusError.h"
#include "DesktopSupport/Bus/BusMessage.h"
#include "DesktopSupport/System/GLibHandles.h"

namespace DesktopSupport {

class BusConnection;
class BusSource;

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

/// A call of a method of this process, to be answered once. May be used on any thread.
class BusInvocation {
 public:
  BusInvocation(std::shared_ptr<BusConnection> connection, BusMessage call)
      : connection_(std::move(connection)), call_(std::move(call)) {}

  [[nodiscard]] const std::string& method() const { return call_.member; }
  /// A tuple of the types that the method takes.
  [[nodiscard]] GVariant* arguments() const { return call_.arguments.get(); }

  /// Answers with the tuple; null for a method that returns nothing.
  void answer(VariantHandle result) const;
  /// Answers with an error.
  void refuse(const BusError& error) const;

 private:
  std::shared_ptr<BusConnection> connection_;
  BusMessage call_;
};

/// An interface of an object of this process on the bus. Destroying it takes the interface from the bus; this is for
/// the thread that serves it, or for any when no thread does.
class ServedObject {
 public:
  ServedObject(std::shared_ptr<BusConnection> connection, std::string path, std::string interface,
               std::unique_ptr<BusSource> source);
  ServedObject(const ServedObject&) = delete;
  ServedObject& operator=(const ServedObject&) = delete;
  ~ServedObject();

 private:
  std::shared_ptr<BusConnection> connection_;
  std::string path_;
  std::string interface_;
  std::unique_ptr<BusSource> source_;
};

/// The signals that an object of another program emits. Destroying it ends the subscription. For the main thread alone.
class SignalSubscription {
 public:
  SignalSubscription(std::shared_ptr<BusConnection> connection, std::uint64_t number, std::string rule)
      : connection_(std::move(connection)), number_(number), rule_(std::move(rule)) {}
  SignalSubscription(const SignalSubscription&) = delete;
  SignalSubscription& operator=(const SignalSubscription&) = delete;
  ~SignalSubscription();

 private:
  std::shared_ptr<BusConnection> connection_;
  std::uint64_t number_;
  std::string rule_;
};

/// The user's session bus. All of a process's objects share one connection, which the first one makes. If the bus goes
/// away, the calls under way fail; the process does not end.
class SessionBus {
 public:
  /// The usual timeout for a bus that takes the connection and does not answer.
  static constexpr std::chrono::seconds connectTime{5};

  /// Connects to the running session bus. Fails with `noServer` if there is none, or it does not answer within
  /// `patience`. Starts none.
  static std::expected<SessionBus, BusError> connect(std::chrono::milliseconds patience = connectTime);

  /// Connects to another bus of the user, such as the accessibility bus, at sockets of this machine: an address that
  /// names something else, for example a command to start, is refused with `notSupported`. Fails like `connect`.
  static std::expected<SessionBus, BusError> connectTo(const std::string& address,
                                                       std::chrono::milliseconds patience = connectTime);

  /// The name that the bus has given to the connection, such as :1.23.
  [[nodiscard]] const std::string& uniqueName() const;

  /// Calls `method` with the tuple `arguments` (null if there are none; takes over a floating variant), and returns the
  /// tuple that it answers, of type `replyType`. Fails with `serviceUnknown` or `nameHasNoOwner` if the destination is
  /// not running and may not or cannot be started, with `noReply` if it leaves the bus before it answers, with
  /// `timeout` if the answer takes longer than that, with `invalidSignature` if it is of another type, and with
  /// `invalidArguments` if D-Bus does not allow a name or path in `method` or cannot carry the arguments. May be called
  /// on any thread.
  [[nodiscard]] BusAnswer call(const BusMethod& method, GVariant* arguments, const GVariantType* replyType,
                               std::chrono::milliseconds timeout, Activation activation = Activation::never) const;

  /// Makes all calls at once, and returns the answers in their order. Each is what `call` would return; `timeout` is
  /// for all of them together. Starts no program.
  [[nodiscard]] std::vector<BusAnswer> callAll(const std::vector<BusCall>& calls,
                                               std::chrono::milliseconds timeout) const;

  /// Calls `method` without waiting for the answer, which `whenAnswered` is given from the main context. Fails like
  /// `call`. May be called on any thread.
  void callLater(const BusMethod& method, GVariant* arguments, std::chrono::milliseconds timeout, Activation activation,
                 std::move_only_function<void(BusAnswer)> whenAnswered) const;

  /// Adds an interface to the object of this process at `path`, the one that `description` (introspection XML)
  /// describes; it may have methods alone. `take` is given the calls with arguments of the right types from `context`,
  /// or from the main context if that is null.
  [[nodiscard]] std::unique_ptr<ServedObject> serve(const std::string& path, const std::string& description,
                                                    GMainContext* context,
                                                    std::function<void(BusInvocation)> take) const;

  /// Subscribes to the signals of `interface` that the object at `path` of the program `sender` emits. If
  /// `firstArgument` is not empty, only to those with it. `take` is called from the main context.
  [[nodiscard]] std::unique_ptr<SignalSubscription> subscribe(
      const std::string& sender, const std::string& path, const std::string& interface,
      const std::string& firstArgument, std::function<void(const std::string& signal, GVariant* arguments)> take) const;

  /// Calls `whenClosed` from the main context when the bus has closed the connection. Replaces an earlier one.
  void setWhenClosed(std::move_only_function<void()> whenClosed) const;

 private:
  explicit SessionBus(std::shared_ptr<BusConnection> connection) : connection_(std::move(connection)) {}

  std::shared_ptr<BusConnection> connection_;
};

/// The number that a reply begins with, of whatever type the rest is: the replies of our own programs begin with the
/// version of their form. `nullopt` if the reply is not a tuple that begins with one of 32 bits without a sign.
std::optional<std::uint32_t> leadingNumber(GVariant* reply);

/// The text as a D-Bus string. Fails with `invalidArguments` if it holds a NUL or is not UTF-8.
std::expected<VariantHandle, BusError> busString(const std::string& text);

}  // namespace DesktopSupport

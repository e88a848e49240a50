#include "DesktopSupport/Bus/SessionBus.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <mutex>
#include <utility>

#include "DesktopSupport/Bus/BusConnection.h"
#include "DesktopSupport/System/Text.h"
#include "DesktopSupport/System/UserFolders.h"

namespace DesktopSupport {

namespace {

BusError noServer(std::string message) {
  return {.name = std::string(BusErrorName::noServer), .message = std::move(message)};
}

/// The address of the running session bus; `nullopt` if there is none.
std::optional<std::string> sessionAddress() {
  if (const char* const address = std::getenv("DBUS_SESSION_BUS_ADDRESS"))
    return address;
  const auto runtimeFolder = folderNamedBy("XDG_RUNTIME_DIR");
  std::error_code ignored;
  if (!runtimeFolder || !std::filesystem::exists(*runtimeFolder / "bus", ignored))
    return std::nullopt;
  const CharsHandle escaped(g_uri_escape_string((*runtimeFolder / "bus").c_str(), "/", /*allow_utf8=*/FALSE));
  return std::string("unix:path=") + escaped.get();
}

BusConnection::Clock::time_point deadlineAfter(std::chrono::milliseconds time) {
  // A time that is longer than any program runs would be too long for a time point.
  return BusConnection::Clock::now() + std::min<std::chrono::milliseconds>(time, std::chrono::years(1));
}

VariantHandle sharedVariant(GVariant* variant) {
  return VariantHandle(variant != nullptr ? g_variant_ref_sink(variant) : nullptr);
}

BusMessage messageFor(const BusMethod& method, VariantHandle arguments, Activation activation) {
  return {.mayActivate = activation == Activation::ifNeeded,
          .destination = method.destination,
          .path = method.path,
          .interface = method.interface,
          .member = method.name,
          .arguments = std::move(arguments)};
}

/// Tells the bus which signals to send. It needs no answer, as messages keep their order.
BusMessage matchMessage(const char* method, const std::string& rule) {
  return {.wantsAnswer = false,
          .destination = "org.freedesktop.DBus",
          .path = "/org/freedesktop/DBus",
          .interface = "org.freedesktop.DBus",
          .member = method,
          .arguments = owned(g_variant_new("(s)", rule.c_str()))};
}

/// The answer if it has the type that was asked for.
BusAnswer checked(BusAnswer answer, const GVariantType* type) {
  if (!answer || type == nullptr || g_variant_is_of_type(answer->get(), type) != FALSE)
    return answer;
  const CharsHandle expected(g_variant_type_dup_string(type));
  return std::unexpected(BusError{.name = std::string(BusErrorName::invalidSignature),
                                  .message = std::string("The answer has the type ") +
                                             g_variant_get_type_string(answer->get()) + ", not " + expected.get() +
                                             '.'});
}

}  // namespace

void BusInvocation::answer(VariantHandle result) const {
  if (call_.wantsAnswer)
    connection_->send(answerTo(call_, std::move(result)));
}

void BusInvocation::refuse(const BusError& error) const {
  if (call_.wantsAnswer)
    connection_->send(errorFor(call_, error));
}

ServedObject::ServedObject(std::shared_ptr<BusConnection> connection, std::string path, std::string interface,
                           std::unique_ptr<BusSource> source)
    : connection_(std::move(connection)),
      path_(std::move(path)),
      interface_(std::move(interface)),
      source_(std::move(source)) {}

ServedObject::~ServedObject() {
  connection_->unserve(path_, interface_, std::move(source_));
}

SignalSubscription::~SignalSubscription() {
  connection_->unsubscribe(number_);
  connection_->send(matchMessage("RemoveMatch", rule_));
}

std::expected<SessionBus, BusError> SessionBus::connect(std::chrono::milliseconds patience) {
  static std::mutex mutex;
  static std::weak_ptr<BusConnection> made;
  const std::lock_guard lock(mutex);
  if (auto connection = made.lock())
    return SessionBus(std::move(connection));
  const auto address = sessionAddress();
  if (!address)
    return std::unexpected(noServer("There is no session bus."));
  auto connection = BusConnection::open(*address, patience);
  if (!connection)
    return std::unexpected(noServer(std::move(connection.error().message)));
  made = *connection;
  return SessionBus(std::move(*connection));
}

std::expected<SessionBus, BusError> SessionBus::connectTo(const std::string& address,
                                                          std::chrono::milliseconds patience) {
  auto connection = BusConnection::open(address, patience);
  if (!connection)
    return std::unexpected(std::move(connection.error()));
  return SessionBus(std::move(*connection));
}

const std::string& SessionBus::uniqueName() const {
  return connection_->uniqueName();
}

BusAnswer SessionBus::call(const BusMethod& method, GVariant* arguments, const GVariantType* replyType,
                           std::chrono::milliseconds timeout, Activation activation) const {
  std::vector<BusMessage> messages;
  messages.push_back(messageFor(method, sharedVariant(arguments), activation));
  auto answers = connection_->call(std::move(messages), deadlineAfter(timeout));
  return checked(std::move(answers.front()), replyType);
}

std::vector<BusAnswer> SessionBus::callAll(const std::vector<BusCall>& calls, std::chrono::milliseconds timeout) const {
  std::vector<BusMessage> messages;
  for (const auto& [method, arguments, replyType] : calls)
    messages.push_back(messageFor(method, sharedVariant(arguments.get()), Activation::never));
  auto answers = connection_->call(std::move(messages), deadlineAfter(timeout));
  for (std::size_t index = 0; index < calls.size(); ++index)
    answers[index] = checked(std::move(answers[index]), calls[index].replyType);
  return answers;
}

void SessionBus::callLater(const BusMethod& method, GVariant* arguments, std::chrono::milliseconds timeout,
                           Activation activation, std::move_only_function<void(BusAnswer)> whenAnswered) const {
  connection_->callLater(messageFor(method, sharedVariant(arguments), activation), deadlineAfter(timeout),
                         std::move(whenAnswered));
}

std::unique_ptr<ServedObject> SessionBus::serve(const std::string& path, const std::string& description,
                                                GMainContext* context, std::function<void(BusInvocation)> take) const {
  // The connection must not keep itself alive.
  const auto takeMessage = [connection = std::weak_ptr(connection_), take = std::move(take)](BusMessage call) {
    if (auto strong = connection.lock())
      take(BusInvocation(std::move(strong), std::move(call)));
  };
  BusInterface interface = BusInterface::describedBy(description);
  std::string name = interface.name;
  auto source = connection_->serve(path, std::move(interface), context, takeMessage);
  return std::make_unique<ServedObject>(connection_, path, std::move(name), std::move(source));
}

std::unique_ptr<SignalSubscription> SessionBus::subscribe(
    const std::string& sender, const std::string& path, const std::string& interface, const std::string& firstArgument,
    std::function<void(const std::string& signal, GVariant* arguments)> take) const {
  std::string rule = "type='signal',sender='" + sender + "',path='" + path + "',interface='" + interface + '\'';
  if (!firstArgument.empty())
    rule += ",arg0='" + firstArgument + '\'';
  const std::uint64_t number = connection_->subscribe(
      path, interface,
      [take = std::move(take)](const BusMessage& signal) { take(signal.member, signal.arguments.get()); });
  connection_->send(matchMessage("AddMatch", rule));
  return std::make_unique<SignalSubscription>(connection_, number, std::move(rule));
}

void SessionBus::setWhenClosed(std::move_only_function<void()> whenClosed) const {
  connection_->setWhenClosed(std::move(whenClosed));
}

std::optional<std::uint32_t> leadingNumber(GVariant* reply) {
  if (g_variant_is_of_type(reply, G_VARIANT_TYPE_TUPLE) == FALSE || g_variant_n_children(reply) == 0)
    return std::nullopt;
  const VariantHandle number(g_variant_get_child_value(reply, 0));
  return g_variant_is_of_type(number.get(), G_VARIANT_TYPE_UINT32) != FALSE
             ? std::optional(g_variant_get_uint32(number.get()))
             : std::nullopt;
}

std::expected<VariantHandle, BusError> busString(const std::string& text) {
  if (!isUTF8(text))
    return std::unexpected(
        BusError{std::string(BusErrorName::invalidArguments), "The text cannot be sent over D-Bus."});
  return owned(g_variant_new_string(text.c_str()));
}

}  // namespace DesktopSupport

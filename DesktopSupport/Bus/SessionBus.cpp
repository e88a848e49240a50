#include "DesktopSupport/Bus/SessionBus.h"

#include <algorithm>
#include <condition_variable>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <mutex>
#include <thread>
#include <utility>

#include "DesktopSupport/System/DisplayableText.h"
#include "DesktopSupport/System/Text.h"
#include "DesktopSupport/System/UserFolders.h"

namespace DesktopSupport {

namespace {

// GIO would start a bus of its own through dbus-launch if it finds none.
bool isRunning() {
  if (std::getenv("DBUS_SESSION_BUS_ADDRESS") != nullptr)
    return true;
  const auto runtimeFolder = folderNamedBy("XDG_RUNTIME_DIR");
  std::error_code ignored;
  return runtimeFolder && std::filesystem::exists(*runtimeFolder / "bus", ignored);
}

// GLib would start a program for other kinds of addresses.
bool isOfSockets(const std::string& address) {
  const auto parts = separated(address, ';');
  return !parts.empty() && std::ranges::all_of(parts, [](std::string_view part) { return part.starts_with("unix:"); });
}

/// Cancels an operation once it has taken `limit`.
class TimeLimit {
 public:
  TimeLimit(GCancellable* cancellable, std::chrono::milliseconds limit)
      : thread_([this, cancellable, limit](const std::stop_token& end) {
          std::unique_lock lock(mutex_);
          const bool isOver = over_.wait_for(lock, end, limit, [&end] { return end.stop_requested(); });
          if (!isOver)
            g_cancellable_cancel(cancellable);
        }) {}

 private:
  std::mutex mutex_;
  std::condition_variable_any over_;
  std::jthread thread_;
};

std::string nameOf(const GError& error) {
  if (g_error_matches(&error, G_IO_ERROR, G_IO_ERROR_TIMED_OUT) != FALSE)
    return std::string(BusErrorName::timeout);
  if (g_error_matches(&error, G_IO_ERROR, G_IO_ERROR_CLOSED) != FALSE)
    return std::string(BusErrorName::disconnected);
  const CharsHandle remoteName(g_dbus_error_get_remote_error(&error));
  if (remoteName)
    return remoteName.get();
  const CharsHandle name(g_dbus_error_encode_gerror(&error));
  return name.get();
}

bool isValid(const BusMethod& method) {
  return g_dbus_is_name(method.destination.c_str()) != FALSE &&
         g_variant_is_object_path(method.path.c_str()) != FALSE &&
         g_dbus_is_interface_name(method.interface.c_str()) != FALSE &&
         g_dbus_is_member_name(method.name.c_str()) != FALSE;
}

BusError forbiddenName() {
  return {.name = std::string(BusErrorName::invalidArguments), .message = "D-Bus allows no such name."};
}

int millisecondsFor(std::chrono::milliseconds timeout) {
  constexpr auto longest = std::numeric_limits<int>::max() - 1;
  return static_cast<int>(std::clamp<std::chrono::milliseconds::rep>(timeout.count(), 0, longest));
}

/// One of several calls. Its answer arrives in the main context that was the thread's default when it was made.
struct PendingCall {
  bool isUnderWay = false;
  BusAnswer answer = std::unexpected(forbiddenName());

  static void finish(GObject* connection, GAsyncResult* result, gpointer call) {
    auto& self = *static_cast<PendingCall*>(call);
    ErrorHandle error;
    VariantHandle reply(g_dbus_connection_call_finish(G_DBUS_CONNECTION(connection), result, Out(error)));
    self.answer = reply ? BusAnswer(std::move(reply)) : std::unexpected(busErrorFrom(*error));
    self.isUnderWay = false;
  }
};

}  // namespace

BusError busErrorFrom(const GError& error) {
  const ErrorHandle copy(g_error_copy(&error));
  g_dbus_error_strip_remote_error(copy.get());
  return {.name = nameOf(error), .message = displayable(copy->message)};
}

std::expected<SessionBus, BusError> SessionBus::connect(std::chrono::milliseconds patience) {
  if (!isRunning())
    return std::unexpected(BusError{std::string(BusErrorName::noServer), "There is no session bus."});
  // Asking GIO for the connection that there is needs no time limit, whose thread would take longer than the rest.
  static GWeakRef made;
  if (ObjectHandle<GDBusConnection> connection(static_cast<GDBusConnection*>(g_weak_ref_get(&made))); connection)
    return SessionBus(std::move(connection));
  auto bus = connectWithin(patience, [](GCancellable* cancellable, GError** error) {
    return g_bus_get_sync(G_BUS_TYPE_SESSION, cancellable, error);
  });
  if (bus)
    g_weak_ref_set(&made, bus->connection());
  return bus;
}

std::expected<SessionBus, BusError> SessionBus::connectTo(const std::string& address,
                                                          std::chrono::milliseconds patience) {
  if (!isOfSockets(address))
    return std::unexpected(
        BusError{std::string(BusErrorName::notSupported), "The bus has an unknown kind of address."});
  return connectWithin(patience, [&address](GCancellable* cancellable, GError** error) {
    constexpr auto client = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                              G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    return g_dbus_connection_new_for_address_sync(address.c_str(), client, nullptr, cancellable, error);
  });
}

template <typename Connect>
std::expected<SessionBus, BusError> SessionBus::connectWithin(std::chrono::milliseconds patience, Connect connect) {
  const ObjectHandle<GCancellable> cancellable(g_cancellable_new());
  const TimeLimit limit(cancellable.get(), patience);
  ErrorHandle error;
  ObjectHandle<GDBusConnection> connection(connect(cancellable.get(), Out(error)));
  if (!connection && g_cancellable_is_cancelled(cancellable.get()) != FALSE)
    return std::unexpected(BusError{std::string(BusErrorName::noServer), "The session bus does not answer."});
  if (!connection)
    return std::unexpected(BusError{std::string(BusErrorName::noServer), displayable(error->message)});
  g_dbus_connection_set_exit_on_close(connection.get(), FALSE);
  return SessionBus(std::move(connection));
}

BusAnswer SessionBus::call(const BusMethod& method, GVariant* arguments, const GVariantType* replyType,
                           std::chrono::milliseconds timeout, Activation activation) const {
  // GIO would return neither a reply nor an error.
  if (!isValid(method)) {
    const VariantHandle unused(arguments == nullptr ? nullptr : g_variant_ref_sink(arguments));
    return std::unexpected(forbiddenName());
  }
  const auto flags = activation == Activation::never ? G_DBUS_CALL_FLAGS_NO_AUTO_START : G_DBUS_CALL_FLAGS_NONE;
  ErrorHandle error;
  VariantHandle reply(g_dbus_connection_call_sync(connection_.get(), method.destination.c_str(), method.path.c_str(),
                                                  method.interface.c_str(), method.name.c_str(), arguments, replyType,
                                                  flags, millisecondsFor(timeout), nullptr, Out(error)));
  if (!reply)
    return std::unexpected(busErrorFrom(*error));
  return reply;
}

std::vector<BusAnswer> SessionBus::callAll(const std::vector<BusCall>& calls, std::chrono::milliseconds timeout) const {
  const MainContextHandle context(g_main_context_new());
  g_main_context_push_thread_default(context.get());
  std::vector<PendingCall> pending(calls.size());
  for (std::size_t index = 0; index < calls.size(); ++index) {
    const auto& [method, arguments, replyType] = calls[index];
    if (!isValid(method))
      continue;
    pending[index].isUnderWay = true;
    g_dbus_connection_call(connection_.get(), method.destination.c_str(), method.path.c_str(), method.interface.c_str(),
                           method.name.c_str(), arguments.get(), replyType, G_DBUS_CALL_FLAGS_NO_AUTO_START,
                           millisecondsFor(timeout), nullptr, &PendingCall::finish, &pending[index]);
  }
  std::vector<BusAnswer> answers;
  answers.reserve(calls.size());
  for (PendingCall& call : pending) {
    while (call.isUnderWay)
      g_main_context_iteration(context.get(), /*may_block=*/TRUE);
    answers.push_back(std::move(call.answer));
  }
  g_main_context_pop_thread_default(context.get());
  return answers;
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

#include "Tests/Support/FakeService.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <stdexcept>
#include <utility>

#include "Tests/Support/GIOHandles.h"
#include "Tests/Support/Patience.h"

namespace TestSupport {

namespace {

using namespace DesktopSupport;

ObjectHandle<GDBusConnection> connectToSessionBus() {
  const char* address = std::getenv("DBUS_SESSION_BUS_ADDRESS");
  ErrorHandle error;
  ObjectHandle<GDBusConnection> connection(g_dbus_connection_new_for_address_sync(
      address != nullptr ? address : "",
      static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                        G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
      nullptr, nullptr, Out(error)));
  if (!connection)
    throw std::runtime_error("no session bus: these tests run under script/desktop");
  return connection;
}

}  // namespace

FakeService::FakeService(std::string name, const std::vector<Object>& objects)
    : name_(std::move(name)), path_(objects.front().path), context_(g_main_context_new()) {
  // GLib handles the calls in the context that is the thread's default when the objects are exported.
  g_main_context_push_thread_default(context_.get());
  connection_ = connectToSessionBus();
  for (const Object& object : objects)
    exportObject(object);
  g_main_context_pop_thread_default(context_.get());
  thread_.emplace(context_.get());
  ownName();
}

FakeService::~FakeService() {
  disappear();
}

void FakeService::exportObject(const Object& object) {
  const NodeInfoHandle node(g_dbus_node_info_new_for_xml(object.description, nullptr));
  if (interface_.empty())
    interface_ = node->interfaces[0]->name;
  static constexpr GDBusInterfaceVTable handlers = {
      .method_call = &FakeService::handleCall, .get_property = nullptr, .set_property = nullptr, .padding = {}};
  for (GDBusInterfaceInfo** interface = node->interfaces; *interface != nullptr; ++interface)
    g_dbus_connection_register_object(connection_.get(), object.path.c_str(), *interface, &handlers, this, nullptr,
                                      nullptr);
}

void FakeService::ownName() {
  constexpr guint32 flagDoNotQueue = 4;
  constexpr guint32 replyPrimaryOwner = 1;
  const VariantHandle reply(g_dbus_connection_call_sync(
      connection_.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
      g_variant_new("(su)", name_.c_str(), flagDoNotQueue), G_VARIANT_TYPE("(u)"), G_DBUS_CALL_FLAGS_NONE, -1, nullptr,
      nullptr));
  guint32 result = 0;
  if (reply)
    g_variant_get(reply.get(), "(u)", &result);
  if (result != replyPrimaryOwner)
    throw std::runtime_error("the name " + name_ + " is taken");
}

void FakeService::answer(const std::string& method, Answer answer) {
  const std::scoped_lock lock(mutex_);
  answers_[method] = std::move(answer);
}

void FakeService::answer(const std::string& method, const std::string& tuple) {
  answer(method, [tuple](GDBusMethodInvocation* invocation) {
    g_dbus_method_invocation_return_value(invocation, g_variant_new_parsed(tuple.c_str()));
  });
}

void FakeService::answerUnchecked(const std::string& method, const std::string& tuple) {
  answer(method, [tuple](GDBusMethodInvocation* invocation) {
    const ObjectHandle<GDBusMethodInvocation> handled(invocation);
    const ObjectHandle<GDBusMessage> reply(
        g_dbus_message_new_method_reply(g_dbus_method_invocation_get_message(invocation)));
    g_dbus_message_set_body(reply.get(), g_variant_new_parsed(tuple.c_str()));
    g_dbus_connection_send_message(g_dbus_method_invocation_get_connection(invocation), reply.get(),
                                   G_DBUS_SEND_MESSAGE_FLAGS_NONE, nullptr, nullptr);
  });
}

void FakeService::refuse(const std::string& method) {
  const std::scoped_lock lock(mutex_);
  answers_.erase(method);
}

std::vector<std::string> FakeService::calls() const {
  const std::scoped_lock lock(mutex_);
  return calls_;
}

std::string FakeService::awaitCall(const std::string& method) {
  std::unique_lock lock(mutex_);
  std::string found;
  const bool isCalled = answered_.wait_for(lock, patience, [&] {
    for (std::size_t index = 0; index < answeredCalls_; ++index)
      if (calls_[index].starts_with(method + '('))
        found = calls_[index];
    return !found.empty();
  });
  if (!isCalled)
    throw std::runtime_error(name_ + ": no call of " + method +
                             "; number of calls so far: " + std::to_string(calls_.size()));
  return found;
}

void FakeService::awaitCalls(const std::string& method, long count) {
  std::unique_lock lock(mutex_);
  long found = 0;
  const bool areCalled = answered_.wait_for(lock, patience, [&] {
    const auto end = calls_.begin() + static_cast<std::ptrdiff_t>(answeredCalls_);
    found = std::count_if(calls_.begin(), end, [&](const std::string& call) { return call.starts_with(method + '('); });
    return found >= count;
  });
  if (!areCalled)
    throw std::runtime_error(name_ + ": " + method + " is called only " + std::to_string(found) + " times, not " +
                             std::to_string(count));
}

void FakeService::emit(const char* signal, const std::string& tuple) const {
  g_dbus_connection_emit_signal(connection_.get(), nullptr, path_.c_str(), interface_.c_str(), signal,
                                g_variant_new_parsed(tuple.c_str()), nullptr);
}

void FakeService::disappear() const {
  g_dbus_connection_flush_sync(connection_.get(), nullptr, nullptr);
  g_dbus_connection_close_sync(connection_.get(), nullptr, nullptr);
}

FakeService::Answer FakeService::noteCall(std::string call, const std::string& method) {
  const std::scoped_lock lock(mutex_);
  calls_.push_back(std::move(call));
  const auto found = answers_.find(method);
  return found == answers_.end() ? nullptr : found->second;
}

void FakeService::handleCall(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar* method,
                             GVariant* arguments, GDBusMethodInvocation* invocation, gpointer service) {
  auto& self = *static_cast<FakeService*>(service);
  const CharsHandle text(g_variant_print(arguments, FALSE));
  const Answer answer = self.noteCall(std::string(method) + text.get(), method);
  if (answer)
    answer(invocation);
  else
    g_dbus_method_invocation_return_dbus_error(invocation, "org.example.Error", "No answer is set.");
  const std::scoped_lock lock(self.mutex_);
  ++self.answeredCalls_;
  self.answered_.notify_all();
}

}  // namespace TestSupport

#include "Tests/Support/FakeDeskloomHost.h"

#include <cstdlib>
#include <stdexcept>
#include <utility>

namespace TestSupport {

namespace {

using namespace DesktopSupport;

constexpr const char* interfaceDescription = R"(
<node>
  <interface name="com.quillary.Deskloom.Scripting">
    <method name="GetGlobalConfig"><arg type="s"/><arg type="b" direction="out"/><arg type="s" direction="out"/></method>
    <method name="SetGlobalConfig"><arg type="s"/><arg type="s"/></method>
    <method name="GetConfig"><arg type="s"/><arg type="b" direction="out"/><arg type="s" direction="out"/></method>
    <method name="SetConfig"><arg type="s"/><arg type="s"/></method>
    <method name="GetPluginFolderPath"><arg type="b" direction="out"/><arg type="s" direction="out"/></method>
    <method name="GetPathOfPlugin"><arg type="s"/><arg type="b" direction="out"/><arg type="s" direction="out"/></method>
    <method name="GetIsPluginInstalledAtPath"><arg type="s"/><arg type="b" direction="out"/></method>
    <method name="InstallPlugin"/>
  </interface>
</node>)";

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

FakeDeskloomHost::FakeDeskloomHost() : context_(g_main_context_new()), loop_(g_main_loop_new(context_.get(), FALSE)) {
  // The calls are handled in the context that is the thread's own while the object is exported.
  g_main_context_push_thread_default(context_.get());
  connection_ = connectToSessionBus();
  const NodeInfoHandle node(g_dbus_node_info_new_for_xml(interfaceDescription, nullptr));
  static constexpr GDBusInterfaceVTable calls = {
      .method_call = &FakeDeskloomHost::handleCall, .get_property = nullptr, .set_property = nullptr, .padding = {}};
  g_dbus_connection_register_object(connection_.get(), "/com/quillary/Deskloom", node->interfaces[0], &calls, this,
                                    nullptr, nullptr);
  g_main_context_pop_thread_default(context_.get());
  thread_ = std::thread([this] { g_main_loop_run(loop_.get()); });
  ownName();
}

FakeDeskloomHost::~FakeDeskloomHost() {
  disappear();
  const auto quit = [](gpointer loop) -> gboolean {
    g_main_loop_quit(static_cast<GMainLoop*>(loop));
    return G_SOURCE_REMOVE;
  };
  g_main_context_invoke(context_.get(), quit, loop_.get());
  thread_.join();
}

void FakeDeskloomHost::ownName() {
  constexpr guint32 flagDoNotQueue = 4;
  constexpr guint32 replyPrimaryOwner = 1;
  const VariantHandle reply(g_dbus_connection_call_sync(
      connection_.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
      g_variant_new("(su)", "com.quillary.Deskloom", flagDoNotQueue), G_VARIANT_TYPE("(u)"), G_DBUS_CALL_FLAGS_NONE, -1,
      nullptr, nullptr));
  guint32 result = 0;
  if (reply)
    g_variant_get(reply.get(), "(u)", &result);
  if (result != replyPrimaryOwner)
    throw std::runtime_error("the host's name is taken");
}

void FakeDeskloomHost::answer(const std::string& method, Answer answer) {
  const std::scoped_lock lock(mutex_);
  answers_[method] = std::move(answer);
}

void FakeDeskloomHost::answer(const std::string& method, const std::string& tuple) {
  answer(method, [tuple](GDBusMethodInvocation* invocation, GVariant*) {
    g_dbus_method_invocation_return_value(invocation, g_variant_new_parsed(tuple.c_str()));
  });
}

void FakeDeskloomHost::answerUnchecked(const std::string& method, const std::string& tuple) {
  answer(method, [tuple](GDBusMethodInvocation* invocation, GVariant*) {
    const ObjectHandle<GDBusMethodInvocation> handled(invocation);
    const ObjectHandle<GDBusMessage> reply(
        g_dbus_message_new_method_reply(g_dbus_method_invocation_get_message(invocation)));
    g_dbus_message_set_body(reply.get(), g_variant_new_parsed(tuple.c_str()));
    g_dbus_connection_send_message(g_dbus_method_invocation_get_connection(invocation), reply.get(),
                                   G_DBUS_SEND_MESSAGE_FLAGS_NONE, nullptr, nullptr);
  });
}

std::vector<std::string> FakeDeskloomHost::calls() const {
  const std::scoped_lock lock(mutex_);
  return calls_;
}

void FakeDeskloomHost::disappear() {
  g_dbus_connection_close_sync(connection_.get(), nullptr, nullptr);
}

void FakeDeskloomHost::handleCall(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar* method,
                                  GVariant* arguments, GDBusMethodInvocation* invocation, gpointer host) {
  auto& self = *static_cast<FakeDeskloomHost*>(host);
  const CharsHandle text(g_variant_print(arguments, FALSE));
  std::unique_lock lock(self.mutex_);
  self.calls_.push_back(std::string(method) + text.get());
  const auto found = self.answers_.find(method);
  const Answer answer = found == self.answers_.end() ? nullptr : found->second;
  lock.unlock();
  if (answer)
    answer(invocation, arguments);
  else
    g_dbus_method_invocation_return_dbus_error(invocation, "com.quillary.Deskloom.Error", "The host has no answer.");
}

}  // namespace TestSupport

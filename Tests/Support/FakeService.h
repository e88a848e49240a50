#pragma once

#include <condition_variable>
#include <cstdlib>
#include <functional>
#include <map>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "DesktopSupport/GLibHandles.h"

namespace TestSupport {

/// A program on the session bus with one object, on a connection and a thread of its own. It answers as the test says
/// and remembers what it was asked.
class FakeService {
 public:
  /// Answers a call. Runs on the service's thread.
  using Answer = std::function<void(GDBusMethodInvocation* invocation)>;

  /// Has the name on the bus, and at `path` the object with the one interface that the XML describes. Throws where that
  /// fails.
  FakeService(std::string name, std::string path, const char* description)
      : name_(std::move(name)),
        path_(std::move(path)),
        context_(g_main_context_new()),
        loop_(g_main_loop_new(context_.get(), FALSE)) {
    // The calls are handled in the context that is the thread's own while the object is exported.
    g_main_context_push_thread_default(context_.get());
    connection_ = connect();
    exportObject(description);
    g_main_context_pop_thread_default(context_.get());
    thread_ = std::thread([this] { g_main_loop_run(loop_.get()); });
    ownName();
  }
  FakeService(const FakeService&) = delete;
  FakeService& operator=(const FakeService&) = delete;
  ~FakeService() {
    disappear();
    const auto quit = [](gpointer loop) -> gboolean {
      g_main_loop_quit(static_cast<GMainLoop*>(loop));
      return G_SOURCE_REMOVE;
    };
    g_main_context_invoke(context_.get(), quit, loop_.get());
    thread_.join();
  }

  /// How a method is answered; one without an answer is refused with an error. To be said before it is called.
  void answer(const std::string& method, Answer answer) {
    const std::scoped_lock lock(mutex_);
    answers_[method] = std::move(answer);
  }

  /// The same with a fixed tuple in GVariant's text form.
  void answer(const std::string& method, const std::string& tuple) {
    answer(method, [tuple](GDBusMethodInvocation* invocation) {
      g_dbus_method_invocation_return_value(invocation, g_variant_new_parsed(tuple.c_str()));
    });
  }

  /// A method that had an answer has none any more.
  void refuse(const std::string& method) {
    const std::scoped_lock lock(mutex_);
    answers_.erase(method);
  }

  /// What was asked so far, as "Method('argument', 'argument')".
  [[nodiscard]] std::vector<std::string> calls() const {
    const std::scoped_lock lock(mutex_);
    return calls_;
  }

  /// Waits until the method has been called and yields the call.
  [[nodiscard]] std::string awaitCall(const std::string& method) {
    std::unique_lock lock(mutex_);
    std::string found;
    called_.wait(lock, [&] {
      for (const std::string& call : calls_)
        if (call.starts_with(method + '('))
          found = call;
      return !found.empty();
    });
    return found;
  }

  /// Tells everybody of a signal, with a tuple in GVariant's text form.
  void emit(const char* signal, const std::string& tuple) const {
    g_dbus_connection_emit_signal(connection_.get(), nullptr, path_.c_str(), interface_.c_str(), signal,
                                  g_variant_new_parsed(tuple.c_str()), nullptr);
  }

  /// Closes the connection, as a program does that crashes; what it has said before still arrives.
  void disappear() const {
    g_dbus_connection_flush_sync(connection_.get(), nullptr, nullptr);
    g_dbus_connection_close_sync(connection_.get(), nullptr, nullptr);
  }

 private:
  static DesktopSupport::ObjectHandle<GDBusConnection> connect() {
    const char* address = std::getenv("DBUS_SESSION_BUS_ADDRESS");
    DesktopSupport::ErrorHandle error;
    DesktopSupport::ObjectHandle<GDBusConnection> connection(g_dbus_connection_new_for_address_sync(
        address != nullptr ? address : "",
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
        nullptr, nullptr, DesktopSupport::Out(error)));
    if (!connection)
      throw std::runtime_error("no session bus: these tests run under script/desktop");
    return connection;
  }

  void exportObject(const char* description) {
    const DesktopSupport::NodeInfoHandle node(g_dbus_node_info_new_for_xml(description, nullptr));
    interface_ = node->interfaces[0]->name;
    static constexpr GDBusInterfaceVTable handlers = {
        .method_call = &FakeService::handleCall, .get_property = nullptr, .set_property = nullptr, .padding = {}};
    g_dbus_connection_register_object(connection_.get(), path_.c_str(), node->interfaces[0], &handlers, this, nullptr,
                                      nullptr);
  }

  void ownName() {
    constexpr guint32 flagDoNotQueue = 4;
    constexpr guint32 replyPrimaryOwner = 1;
    const DesktopSupport::VariantHandle reply(g_dbus_connection_call_sync(
        connection_.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
        g_variant_new("(su)", name_.c_str(), flagDoNotQueue), G_VARIANT_TYPE("(u)"), G_DBUS_CALL_FLAGS_NONE, -1,
        nullptr, nullptr));
    guint32 result = 0;
    if (reply)
      g_variant_get(reply.get(), "(u)", &result);
    if (result != replyPrimaryOwner)
      throw std::runtime_error("the name " + name_ + " is taken");
  }

  static void handleCall(GDBusConnection* /*connection*/, const gchar* /*sender*/, const gchar* /*path*/,
                         const gchar* /*interface*/, const gchar* method, GVariant* arguments,
                         GDBusMethodInvocation* invocation, gpointer service) {
    auto& self = *static_cast<FakeService*>(service);
    const DesktopSupport::CharsHandle text(g_variant_print(arguments, FALSE));
    std::unique_lock lock(self.mutex_);
    const auto found = self.answers_.find(method);
    const Answer answer = found == self.answers_.end() ? nullptr : found->second;
    lock.unlock();
    if (answer)
      answer(invocation);
    else
      g_dbus_method_invocation_return_dbus_error(invocation, "org.example.Error", "It has no answer.");
    // Whoever waits for the call may count on its answer being on the way in front of any signal.
    lock.lock();
    self.calls_.push_back(std::string(method) + text.get());
    self.called_.notify_all();
  }

  std::string name_;
  std::string path_;
  std::string interface_;
  DesktopSupport::MainContextHandle context_;
  DesktopSupport::MainLoopHandle loop_;
  DesktopSupport::ObjectHandle<GDBusConnection> connection_;
  mutable std::mutex mutex_;
  std::condition_variable called_;
  std::map<std::string, Answer> answers_;
  std::vector<std::string> calls_;
  std::thread thread_;
};

}  // namespace TestSupport

#include "Soak/Owners.h"

#include <algorithm>
#include <chrono>

#include "Tests/Support/GIOHandles.h"

namespace Soak {

using namespace DesktopSupport;

namespace {

constexpr const char* busName = "org.freedesktop.DBus";
constexpr const char* busPath = "/org/freedesktop/DBus";

}  // namespace

Owners::Owners(const std::string& name) : context_(g_main_context_new()) {
  g_main_context_push_thread_default(context_.get());
  subscription_ =
      g_dbus_connection_signal_subscribe(bus_.connection(), busName, busName, "NameOwnerChanged", busPath, name.c_str(),
                                         G_DBUS_SIGNAL_FLAGS_NONE, &Owners::ownerChanged, this, nullptr);
  g_main_context_pop_thread_default(context_.get());
  static_cast<void>(bus_.ownerOf(busName));  // returns when the bus knows of the subscription
  thread_.emplace(context_.get());
}

Owners::~Owners() {
  thread_.reset();
  g_dbus_connection_signal_unsubscribe(bus_.connection(), subscription_);
  g_dbus_connection_close_sync(bus_.connection(), nullptr, nullptr);
  while (g_main_context_iteration(context_.get(), /*may_block=*/FALSE)) {
  }
}

bool Owners::include(pid_t process, Clock::time_point killed) const {
  static constexpr std::chrono::seconds rightAfter{1};
  const std::scoped_lock lock(mutex_);
  return processes_.contains(process) || std::ranges::any_of(endsOfUnknown_, [killed](Clock::time_point end) {
           return killed <= end && end - killed < rightAfter;
         });
}

void Owners::ownerChanged(GDBusConnection* bus, const gchar* /*sender*/, const gchar* /*path*/,
                          const gchar* /*interface*/, const gchar* /*signal*/, GVariant* arguments, gpointer self) {
  const gchar* owner = nullptr;
  g_variant_get(arguments, "(&s&s&s)", nullptr, nullptr, &owner);
  if (*owner == '\0')
    return;
  auto* context = static_cast<Owners*>(self)->context_.get();
  g_main_context_push_thread_default(context);
  g_dbus_connection_call(bus, busName, busPath, busName, "GetConnectionUnixProcessID", g_variant_new("(s)", owner),
                         G_VARIANT_TYPE("(u)"), G_DBUS_CALL_FLAGS_NONE, -1, nullptr, &Owners::processTold, self);
  g_main_context_pop_thread_default(context);
}

void Owners::processTold(GObject* bus, GAsyncResult* result, gpointer self) {
  const VariantHandle answer(g_dbus_connection_call_finish(G_DBUS_CONNECTION(bus), result, nullptr));
  auto* owners = static_cast<Owners*>(self);
  const std::scoped_lock lock(owners->mutex_);
  if (!answer) {  // it is gone already
    owners->endsOfUnknown_.push_back(Clock::now());
    return;
  }
  guint32 process = 0;
  g_variant_get(answer.get(), "(u)", &process);
  owners->processes_.insert(static_cast<pid_t>(process));
}

}  // namespace Soak

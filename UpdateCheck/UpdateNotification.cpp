#include "UpdateCheck/UpdateNotification.h"

#include <algorithm>
#include <memory>
#include <utility>

#include <gio/gio.h>

#include "DesktopSupport/Bus/BusDaemon.h"
#include "DesktopSupport/System/DisplayableText.h"
#include "DesktopSupport/System/GLibHandles.h"

namespace UpdateCheck {

namespace {

using DesktopSupport::BusDaemon;
using DesktopSupport::BusError;
using DesktopSupport::CharsHandle;
using DesktopSupport::Out;
using DesktopSupport::SessionBus;
using DesktopSupport::VariantHandle;

constexpr const char* service = "org.freedesktop.Notifications";
constexpr const char* objectPath = "/org/freedesktop/Notifications";
constexpr std::chrono::seconds callTimeout{25};

/// The service knows the action "default", a click on the notification; the other is the button's.
GVariant* actionsFor(const std::optional<std::string>& button) {
  GVariantBuilder actions;
  g_variant_builder_init(&actions, G_VARIANT_TYPE("as"));
  if (button)
    for (const char* text : {"default", button->c_str(), "open", button->c_str()})
      g_variant_builder_add(&actions, "s", text);
  return g_variant_builder_end(&actions);
}

GVariant* hintsFor(const UpdateNotification::Contents& contents) {
  GVariantBuilder hints;
  g_variant_builder_init(&hints, G_VARIANT_TYPE("a{sv}"));
  g_variant_builder_add(&hints, "{sv}", "desktop-entry", g_variant_new_string(contents.identifier.c_str()));
  return g_variant_builder_end(&hints);
}

std::string escaped(const std::string& text) {
  const CharsHandle markup(g_markup_escape_text(text.c_str(), -1));
  return markup.get();
}

/// Sets a flag when the time is up.
class Timer {
 public:
  Timer(std::chrono::seconds duration, bool& isUp)
      : source_(g_timeout_source_new_seconds(static_cast<guint>(duration.count()))) {
    g_source_set_callback(source_.get(), &expired, &isUp, nullptr);
    g_source_attach(source_.get(), nullptr);
  }
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;
  ~Timer() { g_source_destroy(source_.get()); }

 private:
  static gboolean expired(gpointer isUp) {
    *static_cast<bool*>(isUp) = true;
    return G_SOURCE_REMOVE;
  }

  DesktopSupport::SourceHandle source_;
};

/// Sets a flag when nobody owns the service's name, or the bus is gone.
class OwnerWatch {
 public:
  OwnerWatch(const SessionBus& bus, bool& isGone)
      : bus_(bus),
        changes_(bus.subscribe("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", service,
                               [&isGone](const std::string& signal, GVariant* arguments) {
                                 isGone = isGone || isLoss(signal, arguments);
                               })) {
    bus_.setWhenClosed([&isGone] { isGone = true; });
    isGone = isGone || !BusDaemon(bus_, callTimeout).ownerOf(service);
  }
  OwnerWatch(const OwnerWatch&) = delete;
  OwnerWatch& operator=(const OwnerWatch&) = delete;
  ~OwnerWatch() { bus_.setWhenClosed(nullptr); }

 private:
  /// Whether the signal says that a name has no owner any more.
  static bool isLoss(const std::string& signal, GVariant* arguments) {
    if (signal != "NameOwnerChanged" || g_variant_is_of_type(arguments, G_VARIANT_TYPE("(sss)")) == FALSE)
      return false;
    const char* newOwner = nullptr;
    g_variant_get_child(arguments, 2, "&s", &newOwner);
    return *newOwner == '\0';
  }

  const SessionBus& bus_;
  std::unique_ptr<DesktopSupport::SignalSubscription> changes_;
};

/// Null until the application has been launched, or could not be.
using LaunchOutcome = std::optional<std::expected<void, std::string>>;

void launched(GObject* /*source*/, GAsyncResult* result, gpointer data) {
  DesktopSupport::ErrorHandle error;
  const bool isLaunched = g_app_info_launch_default_for_uri_finish(result, Out(error)) != FALSE;
  auto& outcome = *static_cast<LaunchOutcome*>(data);
  outcome.emplace();
  if (!isLaunched)
    outcome = std::unexpected(std::string(error->message));
}

}  // namespace

std::string UpdateTexts::summary(std::string_view name) const {
  return Platform::formatted(
      strings_.localized("An update for %@ is available", "Title of a notification; %@ is the plug-in's name"),
      DesktopSupport::printable(name));
}

std::string UpdateTexts::body(std::string_view version) const {
  return Platform::formatted(
      strings_.localized("Version %@ can be downloaded.", "Text of a notification; %@ is the new version"),
      DesktopSupport::printable(version));
}

std::string UpdateTexts::button() const {
  return strings_.localized("Learn More", "Button of a notification; opens the web page about the update");
}

UpdateNotification::UpdateNotification(DesktopSupport::SessionBus bus)
    : bus_(std::move(bus)),
      subscription_(bus_.subscribe(
          service, objectPath, service, /*firstArgument=*/"",
          [this](const std::string& signal, GVariant* arguments) { handleSignal(signal, arguments); })) {}

std::expected<VariantHandle, BusError> UpdateNotification::call(const char* method, GVariant* arguments,
                                                                const char* replyType) const {
  return bus_.call({.destination = service, .path = objectPath, .interface = service, .name = method}, arguments,
                   G_VARIANT_TYPE(replyType), callTimeout, DesktopSupport::Activation::ifNeeded);
}

bool UpdateNotification::readsMarkup() const {
  const auto capabilities = call("GetCapabilities", nullptr, "(as)");
  if (!capabilities)
    return false;
  DesktopSupport::StringsHandle names;
  g_variant_get(capabilities->get(), "(^as)", static_cast<gchar***>(Out(names)));
  return g_strv_contains(names.get(), "body-markup") != FALSE;
}

std::expected<void, BusError> UpdateNotification::show(const Contents& contents) {
  constexpr guint32 replacingNone = 0;
  constexpr gint32 serversOwnTimeout = -1;
  const std::string body = readsMarkup() ? escaped(contents.body) : contents.body;
  const auto reply = call("Notify",
                          g_variant_new("(susss@as@a{sv}i)", contents.applicationName.c_str(), replacingNone,
                                        contents.identifier.c_str(), contents.summary.c_str(), body.c_str(),
                                        actionsFor(contents.button), hintsFor(contents), serversOwnTimeout),
                          "(u)");
  if (!reply)
    return std::unexpected(reply.error());
  g_variant_get(reply->get(), "(u)", &id_);
  return {};
}

// Signals that have come since `show` are still pending in the main context.
bool UpdateNotification::awaitAnswer(std::chrono::seconds atMost) {
  const Timer timer(atMost, isOver_);
  const OwnerWatch watch(bus_, isOver_);
  while (!isOver_)
    g_main_context_iteration(nullptr, /*may_block=*/TRUE);
  return isAnswered_;
}

void UpdateNotification::handleSignal(const std::string& name, GVariant* arguments) {
  const bool isInvoked = name == "ActionInvoked" && g_variant_is_of_type(arguments, G_VARIANT_TYPE("(us)"));
  const bool isClosed = name == "NotificationClosed" && g_variant_is_of_type(arguments, G_VARIANT_TYPE("(uu)"));
  if (!isInvoked && !isClosed)
    return;
  std::uint32_t id = 0;
  g_variant_get_child(arguments, 0, "u", &id);
  if (id != id_)
    return;
  isOver_ = true;
  isAnswered_ = isAnswered_ || isInvoked;
}

std::expected<void, std::string> openPage(const Platform::URL& url) {
  LaunchOutcome outcome;
  g_app_info_launch_default_for_uri_async(url.absoluteString().c_str(), nullptr, nullptr, &launched, &outcome);
  while (!outcome)
    g_main_context_iteration(nullptr, /*may_block=*/TRUE);
  return *outcome;
}

}  // namespace UpdateCheck

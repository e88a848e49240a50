#pragma once

#include <chrono>
#include <cstdint>
#include <expected>
#include <optional>
#include <string>

#include <gio/gio.h>

#include "DesktopSupport/Bus/SessionBus.h"

namespace UpdateCheck {

/// A notification on the user's desktop (org.freedesktop.Notifications) that can be answered with a click: on itself or
/// on its one button. For the main thread alone.
class UpdateNotification {
 public:
  /// What it shows; plain text throughout.
  struct Contents {
    /// The desktop entry of the application that it comes from, and the name of its icon.
    std::string identifier;
    std::string applicationName;
    std::string summary;
    std::string body;
    /// The button's label; without one, a click means nothing either.
    std::optional<std::string> button;
  };

  explicit UpdateNotification(DesktopSupport::SessionBus bus);
  UpdateNotification(const UpdateNotification&) = delete;
  UpdateNotification& operator=(const UpdateNotification&) = delete;
  ~UpdateNotification();

  /// Shows it, once. Starts the desktop's notification service if needed. Fails where there is none, or it refuses.
  [[nodiscard]] std::expected<void, DesktopSupport::BusError> show(const Contents& contents);

  /// Runs the main context until the notification is answered or closed, its service is gone, or the time is up. True
  /// where it was answered.
  [[nodiscard]] bool awaitAnswer(std::chrono::seconds atMost);

 private:
  [[nodiscard]] std::expected<DesktopSupport::VariantHandle, DesktopSupport::BusError> call(
      const char* method, GVariant* arguments, const char* replyType) const;
  [[nodiscard]] bool readsMarkup() const;
  void handleSignal(const std::string& name, GVariant* arguments);
  static void signalled(GDBusConnection* connection, const gchar* sender, const gchar* path, const gchar* interface,
                        const gchar* signal, GVariant* arguments, gpointer notification);

  DesktopSupport::SessionBus bus_;
  guint subscription_;
  std::uint32_t id_ = 0;
  bool isAnswered_ = false;
  bool isOver_ = false;
};

}  // namespace UpdateCheck

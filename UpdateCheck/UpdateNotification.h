#pragma once

#include <chrono>
#include <cstdint>
#include <expected>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "DesktopSupport/Bus/SessionBus.h"
#include "Platform/Bundle.h"
#include "Platform/Text/URL.h"

namespace UpdateCheck {

/// What the user reads about an update, in the user's language.
class UpdateTexts {
 public:
  explicit UpdateTexts(const Platform::Strings& strings) : strings_(strings) {}

  [[nodiscard]] std::string summary(std::string_view name) const;
  [[nodiscard]] std::string body(std::string_view version) const;
  [[nodiscard]] std::string button() const;

 private:
  const Platform::Strings& strings_;
};

/// A notification on the user's desktop (org.freedesktop.Notifications). The user answers it with a click on it or on
/// its only button. For the main thread only.
class UpdateNotification {
 public:
  /// What it shows. All of it is plain text.
  struct Contents {
    /// The desktop entry of the application that it comes from, and the name of its icon.
    std::string identifier;
    std::string applicationName;
    std::string summary;
    std::string body;
    /// The button's label. Without a button, a click on the notification is not an answer either.
    std::optional<std::string> button;
  };

  explicit UpdateNotification(DesktopSupport::SessionBus bus);
  UpdateNotification(const UpdateNotification&) = delete;
  UpdateNotification& operator=(const UpdateNotification&) = delete;
  ~UpdateNotification() = default;

  /// Shows it, once. Starts the desktop's notification service if needed. Fails if there is none, or it refuses.
  [[nodiscard]] std::expected<void, DesktopSupport::BusError> show(const Contents& contents);

  /// Runs the main context until the notification is answered or closed, its service is gone, or the time is up. True
  /// if it was answered.
  [[nodiscard]] bool awaitAnswer(std::chrono::seconds atMost);

 private:
  [[nodiscard]] std::expected<DesktopSupport::VariantHandle, DesktopSupport::BusError> call(
      const char* method, GVariant* arguments, const char* replyType) const;
  [[nodiscard]] bool readsMarkup() const;
  void handleSignal(const std::string& name, GVariant* arguments);

  DesktopSupport::SessionBus bus_;
  std::unique_ptr<DesktopSupport::SignalSubscription> subscription_;
  std::uint32_t id_ = 0;
  bool isAnswered_ = false;
  bool isOver_ = false;
};

/// Shows a web page to the user, in the browser. Runs the main context until the URL has been handed over. Fails with a
/// clause for the log if no application takes it.
std::expected<void, std::string> openPage(const Platform::URL& url);

}  // namespace UpdateCheck

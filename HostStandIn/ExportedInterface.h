#pragma once

#include <expected>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "DesktopSupport/Bus/SessionBus.h"
#include "DesktopSupport/System/GLibHandles.h"

namespace HostStandIn {

/// One D-Bus interface of an object of this process, exported until this is destroyed. Calls arrive on the main context
/// that was the thread's default when it was created.
class ExportedInterface {
 public:
  /// The answer to a call.
  struct Answer {
    /// A tuple (none: an empty one), or the D-Bus error that the caller gets.
    std::expected<DesktopSupport::VariantHandle, DesktopSupport::BusError> reply = {};
    /// Done after the caller was answered, as it may take longer than a caller should wait.
    std::move_only_function<void()> afterwards = {};
  };
  /// Carries out the method of this name. The arguments have the types that the description gives them.
  using Handler = std::move_only_function<Answer(std::string_view method, GVariant* arguments)>;

  /// Exports the one interface that `description` (introspection XML) describes at `path`. Fails if the object has that
  /// interface already.
  static std::expected<std::unique_ptr<ExportedInterface>, DesktopSupport::BusError> create(
      const DesktopSupport::SessionBus& bus, const std::string& path, const std::string& description, Handler handler);

  ExportedInterface(const ExportedInterface&) = delete;
  ExportedInterface& operator=(const ExportedInterface&) = delete;
  ~ExportedInterface();

 private:
  ExportedInterface(GDBusConnection* connection, Handler handler)
      : connection_(DesktopSupport::shared(connection)), handler_(std::move(handler)) {}

  static void handleCall(GDBusConnection* connection, const gchar* sender, const gchar* path, const gchar* interface,
                         const gchar* method, GVariant* arguments, GDBusMethodInvocation* invocation, gpointer self);

  DesktopSupport::ObjectHandle<GDBusConnection> connection_;
  Handler handler_;
  guint registration_ = 0;
};

}  // namespace HostStandIn

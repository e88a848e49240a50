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

/// One D-Bus interface of an object of this process, for as long as it lives. Calls arrive on the main context that was
/// the thread's default when it was exported.
class ExportedInterface {
 public:
  /// What comes of a call.
  struct Answer {
    /// A tuple (none: an empty one), or the D-Bus error that the caller gets.
    std::expected<DesktopSupport::VariantHandle, DesktopSupport::BusError> reply = {};
    /// What takes longer than a caller should wait for; done once it has been answered.
    std::move_only_function<void()> afterwards = {};
  };
  /// Carries out the method of this name; the arguments are of the types that the description gives it.
  using Handler = std::move_only_function<Answer(std::string_view method, GVariant* arguments)>;

  /// Exports the one interface that `description` (introspection XML) describes at `path`. Fails where the object has
  /// that interface already.
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

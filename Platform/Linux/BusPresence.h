#pragma once

#include <functional>
#include <string>
#include <vector>

#include <gio/gio.h>

#include "DesktopSupport/SessionBus.h"

namespace Platform::Linux {

/// The application on the session bus: the owner of its name, and the object at which org.freedesktop.Application
/// delivers. For the main thread alone.
class BusPresence {
 public:
  /// What the bus delivers; called from the main context.
  struct Handlers {
    std::function<void(std::string launchURL)> open;
    std::function<void()> activate;
  };

  /// The presence of the application `identifier`, a well-known bus name.
  BusPresence(DesktopSupport::SessionBus bus, std::string identifier, Handlers handlers);
  BusPresence(const BusPresence&) = delete;
  BusPresence& operator=(const BusPresence&) = delete;
  ~BusPresence();

  /// Takes the name and begins to be delivered to. False where another process has it, or the bus refuses it.
  bool acquireName();

  /// Delivers the URLs (none: an activation) to the process that has the name. False if there is none any more; then
  /// `launchURLs` holds those that were not delivered.
  [[nodiscard]] bool forward(std::vector<std::string>& launchURLs) const {
    return send(launchURLs, DesktopSupport::Activation::never);
  }

  /// The same, but the bus starts a process if none has the name. False also if the bus does not know how.
  [[nodiscard]] bool forwardStarting(std::vector<std::string>& launchURLs) const {
    return send(launchURLs, DesktopSupport::Activation::ifNeeded);
  }

  /// Gives up the name, so that whatever comes later starts a fresh process, and delivers all that the bus had already
  /// sent here. Returns when everything is delivered and answered.
  void releaseName();

 private:
  [[nodiscard]] bool send(std::vector<std::string>& launchURLs, DesktopSupport::Activation activation) const;
  [[nodiscard]] bool deliver(const char* method, GVariant* arguments, DesktopSupport::Activation activation) const;
  void exportObject();
  void handleCall(const char* method, GVariant* parameters);
  static void methodCalled(GDBusConnection* connection, const gchar* sender, const gchar* path, const gchar* interface,
                           const gchar* method, GVariant* parameters, GDBusMethodInvocation* invocation, gpointer self);

  DesktopSupport::SessionBus bus_;
  std::string identifier_;
  std::string objectPath_;
  Handlers handlers_;
  guint registration_ = 0;
  bool ownsName_ = false;
};

}  // namespace Platform::Linux

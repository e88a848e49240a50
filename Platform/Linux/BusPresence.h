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

  /// Delivers the URLs (none: an activation) to the process that has the name. False where there is none any more.
  [[nodiscard]] bool forward(const std::vector<std::string>& launchURLs) const;

  /// Gives up the name, so that whatever comes later starts a fresh process, and delivers all that the bus had already
  /// sent here. Returns when everything is handled and answered.
  void releaseName();

 private:
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

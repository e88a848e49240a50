#pragma once

#include <functional>
#include <string>
#include <vector>

#include <gio/gio.h>

#include "DesktopSupport/Bus/SessionBus.h"
#include "Linux/Launching/Launch.h"

namespace Linux {

/// The application on the session bus: the owner of its name, and the object at which org.freedesktop.Application
/// delivers.
class BusPresence {
 public:
  /// Is given each launch that the bus delivers.
  using TakeLaunch = std::function<void(Launch launch)>;

  /// How long the bus and another process of the application are waited for.
  static constexpr std::chrono::seconds answerTime{2};
  /// How long another process may take until it begins with what is forwarded; the rest of `answerTime` is for its
  /// answer.
  static constexpr std::chrono::milliseconds beginTime{750};

  /// The presence of the application `identifier`, a well-known bus name. Calls `takeLaunch` from `context`.
  BusPresence(DesktopSupport::SessionBus bus, std::string identifier, GMainContext* context, TakeLaunch takeLaunch);
  BusPresence(const BusPresence&) = delete;
  BusPresence& operator=(const BusPresence&) = delete;
  ~BusPresence();

  /// Takes the name and begins to be delivered to. False where another process has it, or the bus refuses it or does
  /// not answer.
  [[nodiscard]] bool acquireName();

  /// Delivers the URLs (none: an activation) to the process that has the name. False if no process has it any more, or
  /// the one that has it is too busy. Afterwards `launchURLs` holds only the URLs that were not taken.
  [[nodiscard]] bool forward(std::vector<std::string>& launchURLs) const;

  /// Gives up the name, so that whatever comes later starts a fresh process. Returns when all that the bus had sent
  /// here before is waiting in the context.
  void releaseName();

  /// Returns when the bus has all that was answered.
  void flush() const;

 private:
  [[nodiscard]] bool deliver(const char* method, GVariant* arguments) const;
  void exportObject(GMainContext* context);
  static void methodCalled(GDBusConnection* connection, const gchar* sender, const gchar* path, const gchar* interface,
                           const gchar* method, GVariant* parameters, GDBusMethodInvocation* invocation, gpointer self);

  DesktopSupport::SessionBus bus_;
  std::string identifier_;
  std::string objectPath_;
  TakeLaunch takeLaunch_;
  guint registration_ = 0;
  bool mayOwnName_ = false;
};

}  // namespace Linux

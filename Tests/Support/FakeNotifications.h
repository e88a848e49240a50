#pragma once

#include <string>

#include "Tests/Support/FakeService.h"

namespace TestSupport {

/// A fake notification service. Each notification gets the number 7.
class FakeNotifications {
 public:
  FakeNotifications()
      : service_("org.freedesktop.Notifications", "/org/freedesktop/Notifications", R"(
<node>
  <interface name="org.freedesktop.Notifications">
    <method name="GetCapabilities"><arg type="as" direction="out"/></method>
    <method name="Notify">
      <arg type="s"/><arg type="u"/><arg type="s"/><arg type="s"/><arg type="s"/><arg type="as"/><arg type="a{sv}"/>
      <arg type="i"/><arg type="u" direction="out"/>
    </method>
    <signal name="ActionInvoked"><arg type="u"/><arg type="s"/></signal>
    <signal name="NotificationClosed"><arg type="u"/><arg type="u"/></signal>
  </interface>
</node>)") {
    service_.answer("GetCapabilities", "(['body', 'actions'],)");
    service_.answer("Notify", "(uint32 7,)");
  }

  /// Claims to interpret markup in texts.
  void readMarkup() { service_.answer("GetCapabilities", "(['body', 'body-markup'],)"); }

  /// Refuses every notification.
  void refuse() { service_.refuse("Notify"); }

  /// Waits for a notification and returns it as "Notify('name', 0, …)".
  [[nodiscard]] std::string await() { return service_.awaitCall("Notify"); }

  void invoke(const std::string& action) const { service_.emit("ActionInvoked", "(uint32 7, '" + action + "')"); }
  void close(const std::string& number = "7") const {
    service_.emit("NotificationClosed", "(uint32 " + number + ", uint32 2)");
  }
  void emit(const char* signal, const std::string& tuple) const { service_.emit(signal, tuple); }
  void disappear() const { service_.disappear(); }

  [[nodiscard]] bool wereAsked() const { return !service_.calls().empty(); }

 private:
  FakeService service_;
};

}  // namespace TestSupport

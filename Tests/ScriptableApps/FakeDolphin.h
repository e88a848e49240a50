#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include <gio/gio.h>
#include <sys/types.h>

#include "Tests/Support/FakeService.h"

namespace TestSupport {

/// What a process of Dolphin offers on the bus.
class FakeDolphin : public FakeService {
 public:
  explicit FakeDolphin(pid_t process)
      : FakeService("org.kde.dolphin-" + std::to_string(process), "/dolphin/Dolphin_1", R"(
          <node>
            <interface name="org.kde.dolphin.MainWindow">
              <method name="isUrlOpen"><arg type="s"/><arg type="b" direction="out"/></method>
            </interface>
          </node>)") {}

  /// Confirms these locations, and no others.
  void shows(const std::vector<std::string>& locations) {
    answer("isUrlOpen", [locations](GDBusMethodInvocation* invocation) {
      const char* location = nullptr;
      g_variant_get(g_dbus_method_invocation_get_parameters(invocation), "(&s)", &location);
      const bool isShown = std::ranges::find(locations, location) != locations.end();
      g_dbus_method_invocation_return_value(invocation, g_variant_new("(b)", isShown ? TRUE : FALSE));
    });
  }
  void fails() {
    answer("isUrlOpen", [](GDBusMethodInvocation* invocation) {
      g_dbus_method_invocation_return_dbus_error(invocation, "org.example.Error", "No.");
    });
  }
  void staysSilent() {
    answer("isUrlOpen", [](GDBusMethodInvocation* invocation) { g_object_unref(invocation); });
  }
};

}  // namespace TestSupport

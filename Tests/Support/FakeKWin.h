#pragma once

#include <map>
#include <string>
#include <utility>

#include "Tests/Support/FakeService.h"

namespace TestSupport {

/// A fake KWin on the session bus, with windows that a search finds.
class FakeKWin {
 public:
  FakeKWin()
      : service_("org.kde.KWin", {{.path = "/WindowsRunner", .description = R"xml(
<node>
  <interface name="org.kde.krunner1">
    <method name="Match"><arg type="s"/><arg type="a(sssida{sv})" direction="out"/></method>
    <method name="Run"><arg type="s"/><arg type="s"/></method>
  </interface>
</node>)xml"},
                                  {.path = "/KWin", .description = R"xml(
<node>
  <interface name="org.kde.KWin">
    <method name="getWindowInfo"><arg type="s"/><arg type="a{sv}" direction="out"/></method>
  </interface>
</node>)xml"}}) {
    service_.answer("getWindowInfo", [this](GDBusMethodInvocation* invocation) { describe(invocation); });
  }

  /// One more result of each later search.
  void addResult(const std::string& id) {
    results_ += (results_.empty() ? "('" : ", ('") + id + "', 'Title <2>', 'icon', 100, 0.8, @a{sv} {})";
    service_.answer("Match", "(@a(sssida{sv}) [" + results_ + "],)");
  }

  /// A window that the search finds, with what is said about it: "'caption': <'Title'>, …".
  void addWindow(const std::string& id, std::string description) {
    descriptions_["{" + id + "}"] = std::move(description);
    addResult("0_{" + id + "}");
  }

  /// An ordinary window's description. Values in `other` are said instead of its own.
  static std::string described(const std::string& windowClass, const std::string& other = "") {
    return other + (other.empty() ? "" : ", ") + "'resourceName': <'" + windowClass + "'>, 'resourceClass': <'" +
           windowClass + "'>, 'caption': <'A " + windowClass + "'>, 'desktopFile': <'org.example." + windowClass +
           "'>, 'skipTaskbar': <false>, 'minimized': <false>";
  }

  FakeService& service() { return service_; }

 private:
  void describe(GDBusMethodInvocation* invocation) const {
    const char* id = nullptr;
    g_variant_get(g_dbus_method_invocation_get_parameters(invocation), "(&s)", &id);
    const auto found = descriptions_.find(id);
    const std::string description = found == descriptions_.end() ? "" : found->second;
    g_dbus_method_invocation_return_value(invocation,
                                          g_variant_new_parsed(("(@a{sv} {" + description + "},)").c_str()));
  }

  std::string results_;
  std::map<std::string, std::string> descriptions_;
  // The last, since its thread uses the others.
  FakeService service_;
};

}  // namespace TestSupport

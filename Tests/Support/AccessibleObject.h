#pragma once

#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include <sys/types.h>

#include "DesktopSupport/System/GLibHandles.h"
#include "Tests/Support/GIOHandles.h"

namespace TestSupport {

/// What a screen reader says about an item in a window.
struct AccessibleItem {
  /// Its kind: "button", "label".
  std::string role;
  std::string name;
  /// Its text, if it can have one.
  std::string text;

  friend bool operator==(const AccessibleItem&, const AccessibleItem&) = default;
};

std::ostream& operator<<(std::ostream& stream, const AccessibleItem& item);

/// An item on screen as a screen reader knows it: an application, a window, a button. Each operation asks the
/// application again. If the application or the item is gone, results are empty.
class AccessibleObject {
 public:
  /// The object at `path` of the application with the name `owner` on the accessibility bus.
  AccessibleObject(GDBusConnection* bus, std::string owner, std::string path);
  AccessibleObject(const AccessibleObject& other) : AccessibleObject(other.bus_.get(), other.owner_, other.path_) {}
  AccessibleObject(AccessibleObject&&) = default;
  AccessibleObject& operator=(const AccessibleObject&) = delete;
  AccessibleObject& operator=(AccessibleObject&&) = default;
  ~AccessibleObject() = default;

  [[nodiscard]] AccessibleItem item() const { return {role(), name(), text()}; }
  [[nodiscard]] std::string role() const;
  [[nodiscard]] std::string name() const;
  [[nodiscard]] std::string text() const;

  /// The process of its application.
  [[nodiscard]] pid_t process() const;

  /// The items directly inside it.
  [[nodiscard]] std::vector<AccessibleObject> children() const;

  /// All items inside it, in reading order.
  [[nodiscard]] std::vector<AccessibleItem> items() const;

  /// Presses the button inside it with this name or label. Returns false if there is none or it cannot be pressed. A
  /// button takes a moment to go down and up; pressing it again before that does nothing.
  [[nodiscard]] bool press(const std::string& button) const;

  /// Selects all of the text with this name inside it. Returns false if there is none or it cannot be selected.
  [[nodiscard]] bool select(const std::string& text) const;

 private:
  [[nodiscard]] std::vector<AccessibleObject> descendants() const;
  [[nodiscard]] bool ask(const char* interface, const char* method, GVariant* arguments) const;
  [[nodiscard]] bool isButton(const std::string& label) const;
  [[nodiscard]] DesktopSupport::VariantHandle call(const char* interface, const char* method, GVariant* arguments,
                                                   const char* replyType) const;

  ObjectHandle<GDBusConnection> bus_;
  std::string owner_;
  std::string path_;
};

}  // namespace TestSupport

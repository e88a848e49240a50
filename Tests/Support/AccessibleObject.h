#pragma once

#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include <sys/types.h>

#include "DesktopSupport/System/GLibHandles.h"

namespace TestSupport {

/// What a screen reader says of one thing in a window.
struct AccessibleItem {
  /// What kind of thing it is: "button", "label".
  std::string role;
  std::string name;
  /// The text inside it, for those that hold one.
  std::string text;

  friend bool operator==(const AccessibleItem&, const AccessibleItem&) = default;
};

std::ostream& operator<<(std::ostream& stream, const AccessibleItem& item);

/// One thing on the screen as a screen reader knows it: an application, a window, a button. Each operation asks the
/// application anew; what cannot be learnt since it is gone is empty.
class AccessibleObject {
 public:
  /// The object at `path` of the application that is `owner` on the accessibility bus.
  AccessibleObject(GDBusConnection* bus, std::string owner, std::string path);
  AccessibleObject(const AccessibleObject& other) : AccessibleObject(other.bus_.get(), other.owner_, other.path_) {}
  AccessibleObject(AccessibleObject&&) = default;
  AccessibleObject& operator=(AccessibleObject&&) = default;
  ~AccessibleObject() = default;

  [[nodiscard]] AccessibleItem item() const { return {role(), name(), text()}; }
  [[nodiscard]] std::string role() const;
  [[nodiscard]] std::string name() const;
  [[nodiscard]] std::string text() const;

  /// The process of its application.
  [[nodiscard]] pid_t process() const;

  /// What is directly inside it.
  [[nodiscard]] std::vector<AccessibleObject> children() const;

  /// All that is inside it, in the order in which it is read.
  [[nodiscard]] std::vector<AccessibleItem> items() const;

  /// Presses the button inside it that has this name or this label. False where there is none, or it could not be
  /// pressed. A button takes a moment to go down and up again: pressed once more meanwhile, it does nothing.
  [[nodiscard]] bool press(const std::string& button) const;

  /// Selects all of the text with this name inside it, as for copying. False where there is none, or it is not for
  /// selecting.
  [[nodiscard]] bool select(const std::string& text) const;

 private:
  [[nodiscard]] std::vector<AccessibleObject> descendants() const;
  [[nodiscard]] bool ask(const char* interface, const char* method, GVariant* arguments) const;
  [[nodiscard]] bool isButton(const std::string& label) const;
  [[nodiscard]] DesktopSupport::VariantHandle call(const char* interface, const char* method, GVariant* arguments,
                                                   const char* replyType) const;

  DesktopSupport::ObjectHandle<GDBusConnection> bus_;
  std::string owner_;
  std::string path_;
};

}  // namespace TestSupport

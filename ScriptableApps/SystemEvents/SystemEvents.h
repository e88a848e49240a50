#pragma once

#include "AppleScript/Values/Application.h"

namespace ScriptableApps {

/// "System Events": the applications that show windows on the desktop, as its processes. They are read from the X
/// server that DISPLAY names.
class SystemEvents : public AppleScript::Application {
 public:
  [[nodiscard]] std::string_view name() const override;
  [[nodiscard]] const AppleScript::Dictionary& dictionary() const override;

  /// An application that has no file here is left out and is in the system's log. Fails with -600 if there is no
  /// desktop to ask: no X server, no window manager, or one that lists no windows.
  [[nodiscard]] AppleScript::Result<AppleScript::ObjectPointer> open() override;
};

}  // namespace ScriptableApps

#pragma once

#include <expected>
#include <optional>
#include <string>

#include "Platform/Bundle.h"
#include "Platform/Linux/WindowToolkit.h"

namespace Platform::Linux {

/// The module `deskloom-windows.so` in the bundle, which brings the user interface's libraries along. It is loaded the
/// first time that something is to be shown, so a launch that shows nothing does without them.
class WindowModule {
 public:
  explicit WindowModule(const Bundle& bundle) : bundle_(bundle) {}

  /// The toolkit, or why nothing can be shown: the module cannot be loaded, or there is no display. What was found the
  /// first time holds.
  std::expected<WindowToolkit*, std::string> toolkit();

 private:
  [[nodiscard]] std::expected<WindowToolkit*, std::string> load() const;

  const Bundle& bundle_;
  std::optional<std::expected<WindowToolkit*, std::string>> toolkit_;
};

}  // namespace Platform::Linux

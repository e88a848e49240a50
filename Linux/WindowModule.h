#pragma once

#include <expected>
#include <memory>
#include <optional>
#include <string>

#include "Linux/WindowToolkit.h"
#include "Platform/Bundle.h"

namespace Linux {

/// The module `deskloom-windows.so` in the bundle, which brings the user interface's libraries along. It is loaded the
/// first time that something is to be shown, so a launch that shows nothing does without them.
class WindowModule {
 public:
  explicit WindowModule(const Platform::Bundle& bundle) : bundle_(bundle) {}

  /// The toolkit, or why nothing can be shown: the module cannot be loaded, or there is no display. What was found the
  /// first time holds.
  std::expected<WindowToolkit*, std::string> toolkit();

 private:
  using Toolkit = std::expected<std::unique_ptr<WindowToolkit>, std::string>;

  [[nodiscard]] Toolkit load() const;

  const Platform::Bundle& bundle_;
  std::optional<Toolkit> toolkit_;
};

}  // namespace Linux

#pragma once

#include <expected>
#include <memory>
#include <optional>
#include <string>

#include "Linux/Application.h"
#include "Linux/WindowToolkit.h"
#include "Platform/Bundle.h"
#include "Platform/Log.h"

namespace Linux {

/// Makes windows with the toolkit of the bundle's module `deskloom-windows.so`. The module, and with it the libraries
/// of the user interface, is loaded when the first window or alert is shown, so a launch that shows none doesn't pay
/// for them. For the main thread alone.
class Windows : public Platform::Windows {
 public:
  Windows(const Platform::Bundle& bundle, Platform::Log& log) : bundle_(bundle), log_(log) {}

  std::unique_ptr<Platform::Window> makeWindow(const Platform::WindowContent& content) override;

  /// The toolkit, or why nothing can be shown: the module cannot be loaded, or there is no display. It isn't tried a
  /// second time.
  std::expected<WindowToolkit*, std::string> toolkit();

 private:
  using LoadedToolkit = std::expected<std::unique_ptr<WindowToolkit>, std::string>;

  [[nodiscard]] LoadedToolkit load() const;

  const Platform::Bundle& bundle_;
  Platform::Log& log_;
  std::optional<LoadedToolkit> toolkit_;
};

/// Shows alerts with the toolkit of `Windows`, one at a time, and runs the main context until the user has dismissed
/// them or the application is asked to terminate. If nothing can be shown, or the application is terminating, writes
/// their texts to the log instead and returns. For the main thread alone.
class Alerts : public Platform::Alerts {
 public:
  Alerts(Windows& windows, const Application& application, Platform::Strings& strings, Platform::Log& log)
      : windows_(windows), application_(application), strings_(strings), log_(log) {}

  void runModal(const Platform::Alert& alert) override;

 private:
  void awaitDismissal(const AlertPanel& panel) const;
  void writeToLog(const Platform::Alert& alert, const std::string& reason);

  Windows& windows_;
  const Application& application_;
  Platform::Strings& strings_;
  Platform::Log& log_;
  const AlertPanel* shown_ = nullptr;
};

}  // namespace Linux

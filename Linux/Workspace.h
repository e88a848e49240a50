#pragma once

#include <string>
#include <string_view>

#include "DesktopSupport/DesktopEntries/DesktopEntry.h"
#include "Linux/HandOvers.h"
#include "Platform/Log.h"
#include "Platform/Workspace.h"

namespace Linux {

/// Opens URLs through the desktop's handler for their scheme. `open` may be called on any thread.
class Workspace : public Platform::Workspace {
 public:
  explicit Workspace(Platform::Log& log) : log_(log), handOvers_(log) {}

  void open(Platform::URL url) override;

  /// Runs the main context until every hand-over has completed or failed. For the main thread alone.
  void finishHandOvers() { handOvers_.finish(); }

 private:
  void openByBus(Platform::URL url, const DesktopSupport::DesktopEntry& handler);
  void openByProgram(Platform::URL url, const DesktopSupport::DesktopEntry& handler);
  void reportFailure(std::string_view scheme, const std::string& reason);

  Platform::Log& log_;
  HandOvers handOvers_;
};

}  // namespace Linux

#pragma once

#include <string>
#include <string_view>

#include "DesktopSupport/DesktopEntries/DesktopEntry.h"
#include "Linux/HandOvers.h"
#include "Platform/Log.h"
#include "Platform/Services.h"

namespace Linux {

/// Opens URLs with the desktop's handler for their scheme.
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

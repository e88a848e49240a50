#pragma once

#include <string>
#include <string_view>

#include "DesktopSupport/DesktopEntry.h"
#include "Platform/Log.h"
#include "Platform/Workspace.h"

namespace Platform::Linux {

/// Opens URLs through the desktop's handler for their scheme. For the main thread alone.
class LinuxWorkspace : public Workspace {
 public:
  explicit LinuxWorkspace(Log& log) : log_(log) {}

  void open(const URL& url) override;

  /// Runs the main context until every hand-over has completed or failed.
  void finishHandOvers();

 private:
  struct HandOver;

  void openByBus(const URL& url, const DesktopSupport::DesktopEntry& handler);
  void openByProgram(const URL& url, const DesktopSupport::DesktopEntry& handler);
  void reportFailure(std::string_view scheme, const std::string& reason);

  Log& log_;
  int handOversUnderWay_ = 0;
};

}  // namespace Platform::Linux

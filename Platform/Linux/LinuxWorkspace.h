#pragma once

#include <cstddef>
#include <mutex>
#include <string>
#include <string_view>

#include "DesktopSupport/DesktopEntry.h"
#include "Platform/Log.h"
#include "Platform/Workspace.h"

namespace Platform::Linux {

/// Opens URLs through the desktop's handler for their scheme. `open` may be called on any thread.
class LinuxWorkspace : public Workspace {
 public:
  explicit LinuxWorkspace(Log& log) : log_(log) {}

  void open(const URL& url) override;

  /// Runs the main context until every hand-over has completed or failed. For the main thread alone.
  void finishHandOvers();

 private:
  struct HandOver;

  void openByBus(const URL& url, const DesktopSupport::DesktopEntry& handler);
  void openByProgram(const URL& url, const DesktopSupport::DesktopEntry& handler);
  void reportFailure(std::string_view scheme, const std::string& reason);

  [[nodiscard]] HandOver* beginHandOver(std::string_view scheme);
  [[nodiscard]] bool isHandingOver() const;

  Log& log_;
  /// Guards the hand-overs of all workspaces: they begin on any thread and complete on the main one.
  static inline std::mutex mutex;
  std::size_t handOversUnderWay_ = 0;
};

}  // namespace Platform::Linux

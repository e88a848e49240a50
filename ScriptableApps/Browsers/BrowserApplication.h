#pragma once

#include <expected>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

#include "AppleScript/Values/Application.h"
#include "BrowserSessions/BrowserSession.h"
#include "ScriptableApps/Browsers/BrowserObjects.h"

namespace ScriptableApps {

/// A browser that runs.
struct RunningBrowser {
  /// None where that cannot be told.
  std::optional<pid_t> process;
  /// Reads what it has open, given the titles of the windows of its process, as far as they are known, in the order in
  /// which they were opened; fails with a sentence where that cannot be.
  std::function<std::expected<BrowserSessions::SessionReading, std::string>(const std::vector<std::string>& titles)>
      read;
};

/// A scriptable application that stands for one or more browsers of a kind: their windows are its windows, those of the
/// browser in front first. No browser is started.
class BrowserApplication : public AppleScript::Application {
 public:
  /// What cannot be read is left out and is in the system's log, and so are tabs with addresses of more than 64 KiB.
  /// Fails with -600 where no such browser runs, and with -2700 where nothing could be read of those that do.
  [[nodiscard]] AppleScript::Result<AppleScript::ObjectPointer> open() override;

 private:
  /// The browsers that run. `processes` are those that show windows, the topmost first, each once; they are for finding
  /// browsers that are known by nothing else.
  [[nodiscard]] virtual std::vector<RunningBrowser> runningBrowsers(const std::vector<pid_t>& processes) const = 0;

  [[nodiscard]] virtual const BrowserClasses& classes() const = 0;
};

}  // namespace ScriptableApps

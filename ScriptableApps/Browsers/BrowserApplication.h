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

/// A running browser.
struct RunningBrowser {
  /// `nullopt` if it is unknown.
  std::optional<pid_t> process;
  /// Reads what the browser has open. Takes the known titles of its process's windows, in the order in which they were
  /// opened. Fails with a sentence for the user.
  std::function<std::expected<BrowserSessions::SessionReading, std::string>(const std::vector<std::string>& titles)>
      read;
};

/// A scriptable application that stands for all running browsers of a kind. It has all their windows, those of the
/// browser in front first. Starts no browser.
class BrowserApplication : public AppleScript::Application {
 public:
  /// Yields a `BrowserRoot`. Leaves out and logs what cannot be read, and tabs with addresses of more than 64 KiB.
  /// Fails with -600 if no such browser is running, and with -2700 if none of them can be read.
  [[nodiscard]] AppleScript::Result<AppleScript::ObjectPointer> open() override;

 private:
  /// The running browsers. `processes` are those that show windows, each once, the topmost first. Some browsers can
  /// only be found among these.
  [[nodiscard]] virtual std::vector<RunningBrowser> runningBrowsers(const std::vector<pid_t>& processes) const = 0;
};

}  // namespace ScriptableApps

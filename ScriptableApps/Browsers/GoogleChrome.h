#pragma once

#include "ScriptableApps/Browsers/BrowserApplication.h"

namespace ScriptableApps {

/// "Google Chrome": the windows and tabs of all running browsers of the Chromium family.
class GoogleChrome : public BrowserApplication {
 public:
  [[nodiscard]] std::string_view name() const override;
  [[nodiscard]] const AppleScript::Dictionary& dictionary() const override;

 private:
  [[nodiscard]] std::vector<RunningBrowser> runningBrowsers(const std::vector<pid_t>& processes) const override;
};

}  // namespace ScriptableApps

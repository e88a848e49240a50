#pragma once

#include "ScriptableApps/Browsers/BrowserApplication.h"

namespace ScriptableApps {

/// "Safari": the windows and tabs of GNOME Web and Firefox.
class Safari : public BrowserApplication {
 public:
  [[nodiscard]] std::string_view name() const override;
  [[nodiscard]] const AppleScript::Dictionary& dictionary() const override;

 private:
  [[nodiscard]] std::vector<RunningBrowser> runningBrowsers(const std::vector<pid_t>& processes) const override;
};

}  // namespace ScriptableApps

#include "ScriptableApps/SystemEvents/SystemEvents.h"

#include <string>
#include <utility>

#include "DesktopSupport/DesktopEntries/DesktopEntries.h"
#include "DesktopSupport/Screen/Screen.h"
#include "DesktopSupport/System/SystemLog.h"
#include "ScriptableApps/Common/ApplicationError.h"
#include "ScriptableApps/SystemEvents/SystemEventsObjects.h"

namespace ScriptableApps {

std::string_view SystemEvents::name() const {
  return "System Events";
}

const AppleScript::Dictionary& SystemEvents::dictionary() const {
  return systemEventsDictionary();
}

AppleScript::Result<AppleScript::ObjectPointer> SystemEvents::open() {
  const auto windows = DesktopSupport::readWindows();
  if (!windows)
    return std::unexpected(notRunning(name(), windows.error().message));
  DesktopSupport::DesktopEntries entries(DesktopSupport::applicationFolders());
  auto running = runningApplications(*windows, entries);
  for (const std::string& problem : running.problems)
    DesktopSupport::writeToSystemLog(problem);
  return std::make_shared<const SystemEventsRoot>(std::move(running.applications));
}

}  // namespace ScriptableApps

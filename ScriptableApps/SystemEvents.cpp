#include "ScriptableApps/SystemEvents.h"

#include "DesktopSupport/ApplicationFolders.h"
#include "DesktopSupport/WindowReader.h"
#include "ScriptableApps/ApplicationError.h"
#include "ScriptableApps/SystemEventsObjects.h"

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
  return std::make_shared<const SystemEventsRoot>(runningApplications(*windows, entries));
}

}  // namespace ScriptableApps

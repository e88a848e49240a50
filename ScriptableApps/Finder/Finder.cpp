#include "ScriptableApps/Finder/Finder.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "DesktopSupport/System/SystemLog.h"
#include "ScriptableApps/Common/ApplicationError.h"
#include "ScriptableApps/Finder/FileManagers.h"
#include "ScriptableApps/Finder/FinderObjects.h"
#include "ScriptableApps/Finder/MountedPlaces.h"

namespace ScriptableApps {

namespace {

AppleScript::ScriptError errorFor(std::string_view application, const DesktopSupport::BusError& error) {
  if (error.name == DesktopSupport::BusErrorName::notSupported)
    return applicationError(application, AppleScript::ErrorNumber::noSuchObject, error.message);
  return applicationError(application, error);
}

}  // namespace

std::string_view Finder::name() const {
  return "Finder";
}

const AppleScript::Dictionary& Finder::dictionary() const {
  return finderDictionary();
}

AppleScript::Result<AppleScript::ObjectPointer> Finder::open() {
  const auto open = openLocations(patience_);
  if (!open)
    return std::unexpected(errorFor(name(), open.error()));
  for (const std::string& problem : open->problems)
    DesktopSupport::writeToSystemLog(problem);
  MountedPlaces places(patience_);
  std::vector<FinderWindow> windows;
  for (FolderOrProblem& folder : openFoldersAt(open->locations, places))
    if (folder)
      windows.emplace_back(std::move(*folder));
    else
      DesktopSupport::writeToSystemLog(folder.error());
  return std::make_shared<const FinderRoot>(std::move(windows));
}

}  // namespace ScriptableApps

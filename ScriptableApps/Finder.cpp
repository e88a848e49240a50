#include "ScriptableApps/Finder.h"

#include "ScriptableApps/ApplicationError.h"
#include "ScriptableApps/FileManagers.h"
#include "ScriptableApps/FinderObjects.h"
#include "ScriptableApps/MountedPlaces.h"

namespace ScriptableApps {

std::string_view Finder::name() const {
  return "Finder";
}

const AppleScript::Dictionary& Finder::dictionary() const {
  return finderDictionary();
}

AppleScript::Result<AppleScript::ObjectPointer> Finder::open() {
  const auto locations = openLocations(patience_);
  if (!locations)
    return std::unexpected(applicationError(name(), locations.error()));
  MountedPlaces places(patience_);
  std::vector<FinderWindow> windows;
  for (const std::string& location : *locations)
    if (auto folder = openFolderAt(location, places))
      windows.emplace_back(std::move(*folder));
  return std::make_shared<const FinderRoot>(std::move(windows));
}

}  // namespace ScriptableApps

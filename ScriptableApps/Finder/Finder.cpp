#include "ScriptableApps/Finder/Finder.h"

#include <array>
#include <memory>
#include <string>

#include "AppleScript/Values/Value.h"
#include "DesktopSupport/System/SystemLog.h"
#include "ScriptableApps/Errors/ApplicationErrors.h"
#include "ScriptableApps/Finder/FileManagerWindows.h"

namespace ScriptableApps {

namespace {

using AppleScript::ClassDescription;
using AppleScript::ElementsDescription;
using AppleScript::Object;
using AppleScript::PropertyDescription;
using AppleScript::Value;

using Answer = AppleScript::Result<Value>;

constexpr const char* applicationName = "Finder";

const OpenFolder& folderOf(const Object& window) {
  return static_cast<const FinderWindow&>(window).folder();
}

const std::vector<FinderWindow>& windowsOf(const Object& root) {
  return static_cast<const FinderRoot&>(root).windows();
}

constexpr auto windowProperties = std::to_array<PropertyDescription>({
    {"name", [](const Object& window) -> Answer { return Value(folderOf(window).name); }},
    {"target", [](const Object& window) -> Answer { return Value(AppleScript::File(folderOf(window).path)); }},
});

constexpr ClassDescription windowClass{.name = "window", .plural = "windows", .properties = windowProperties};
constexpr ClassDescription finderWindowClass{
    .name = "Finder window", .plural = "Finder windows", .properties = windowProperties};

std::size_t countWindows(const Object& root) {
  return windowsOf(root).size();
}

const Object& windowAt(const Object& root, std::size_t index) {
  return windowsOf(root)[index];
}

constexpr auto rootProperties = std::to_array<PropertyDescription>({
    {"name", [](const Object&) -> Answer { return Value(applicationName); }},
});

constexpr auto rootElements = std::to_array<ElementsDescription>({
    {&windowClass, countWindows, windowAt},
    {&finderWindowClass, countWindows, windowAt},
});

constexpr ClassDescription rootClass{
    .name = "application", .plural = "applications", .properties = rootProperties, .elements = rootElements};

constexpr std::array<const ClassDescription*, 3> classes = {&rootClass, &windowClass, &finderWindowClass};

AppleScript::ScriptError errorFor(std::string_view application, const DesktopSupport::BusError& error) {
  if (error.name == DesktopSupport::BusErrorName::notSupported)
    return applicationError(application, AppleScript::ErrorNumber::noSuchObject, error.message);
  return applicationError(application, error);
}

}  // namespace

std::string_view Finder::name() const {
  return applicationName;
}

const AppleScript::Dictionary& Finder::dictionary() const {
  static constexpr AppleScript::Dictionary dictionary{.application = &rootClass, .classes = classes};
  return dictionary;
}

AppleScript::Result<AppleScript::ObjectPointer> Finder::open() {
  const auto open = openLocations(patience_, searchTime_);
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

const ClassDescription& FinderWindow::classDescription() const {
  return windowClass;
}

const ClassDescription& FinderRoot::classDescription() const {
  return rootClass;
}

}  // namespace ScriptableApps

#include "ScriptableApps/Finder/RunningFileManagers.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "DesktopSupport/Bus/BusDaemon.h"
#include "DesktopSupport/Processes/ProcessInfo.h"
#include "DesktopSupport/System/DisplayableText.h"

namespace ScriptableApps {

namespace {

using DesktopSupport::SessionBus;
using std::chrono::milliseconds;

// Only one program can own the first name. The others are found by their own names.
constexpr std::array fileManagerNames = {"org.freedesktop.FileManager1", "org.gnome.Nautilus", "org.Nemo"};

// The window classes, in lower case, of file managers that have no name on the bus.
constexpr auto fileManagerClasses = std::to_array<std::string_view>(
    {"caja", "dolphin", "nemo", "org.gnome.nautilus", "pcmanfm", "pcmanfm-qt", "spacefm", "thunar"});

void addNew(FileManagers& fileManagers, FileManager more) {
  if (std::ranges::find(fileManagers, more) == fileManagers.end())
    fileManagers.push_back(std::move(more));
}

bool isOfFileManager(const DesktopSupport::Window& window) {
  const std::string windowClass = DesktopSupport::lowerCase(window.windowClass);
  return window.isOrdinary && window.pid &&
         std::ranges::find(fileManagerClasses, windowClass) != fileManagerClasses.end();
}

}  // namespace

FileManagers fileManagersOn(const SessionBus& bus, milliseconds patience) {
  const DesktopSupport::BusDaemon daemon(bus, patience);
  FileManagers fileManagers;
  for (const char* name : fileManagerNames)
    if (const auto owner = daemon.ownerOf(name))
      addNew(fileManagers, {.connection = *owner, .pid = daemon.processOf(*owner)});
  return fileManagers;
}

FileManagers otherFileManagers(const WindowsOnScreen& screen, const FileManagers& onBus) {
  FileManagers others;
  if (!screen)
    return others;
  for (const DesktopSupport::Window& window : screen->windows)
    if (isOfFileManager(window) && std::ranges::find(onBus, window.pid, &FileManager::pid) == onBus.end())
      addNew(others, {.pid = window.pid});
  return others;
}

bool mayShowWindows(const FileManager& fileManager, const WindowsOnScreen& screen) {
  const auto isIts = [&](const auto& window) { return window.isOrdinary && window.pid == fileManager.pid; };
  return !screen || std::ranges::any_of(screen->windows, isIts);
}

std::string nameOf(const FileManager& fileManager) {
  const auto program = DesktopSupport::ProcessInfo(fileManager.pid).executable().value_or("A file manager");
  return DesktopSupport::displayable(program.filename().string());
}

}  // namespace ScriptableApps

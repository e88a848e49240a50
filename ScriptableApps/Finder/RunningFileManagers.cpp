#include "ScriptableApps/Finder/RunningFileManagers.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <ranges>
#include <utility>

#include "DesktopSupport/Bus/BusDaemon.h"
#include "DesktopSupport/Processes/ProcessInfo.h"
#include "DesktopSupport/System/DisplayableText.h"
#include "ScriptableApps/Finder/WindowOrder.h"

namespace ScriptableApps {

namespace {

using DesktopSupport::BusDaemon;
using DesktopSupport::SessionBus;
using DesktopSupport::Window;
using std::chrono::milliseconds;

// A further file manager is one more row.
constexpr auto programs = std::to_array<FileManagerProgram>({
    {.name = "nautilus", .classes = {"org.gnome.nautilus"}, .busName = "org.gnome.Nautilus"},
    {.name = "dolphin", .classes = {"dolphin", "org.kde.dolphin"}, .titleEnd = " — Dolphin"},
    {.name = "nemo", .classes = {"nemo"}, .busName = "org.Nemo"},
    {.name = "caja", .classes = {"caja"}, .busName = "org.mate.Caja"},
    {.name = "thunar", .classes = {"thunar", "org.xfce.thunar"}, .busName = "org.xfce.Thunar", .titleEnd = " - Thunar"},
    {.name = "pcmanfm", .classes = {"pcmanfm"}},
    {.name = "pcmanfm-qt", .classes = {"pcmanfm-qt"}},
    {.name = "spacefm", .classes = {"spacefm"}},
});

// Only one program can own the first name. Those that don't answer to it are found by their windows.
constexpr std::array alwaysAskedFor = {"org.freedesktop.FileManager1", "org.gnome.Nautilus", "org.Nemo"};

bool isOf(const Window& window, const FileManagerProgram& program) {
  const auto isOneOfItsOwn = [&](const std::string& text) {
    return !text.empty() &&
           std::ranges::find(program.classes, DesktopSupport::lowerCase(text)) != program.classes.end();
  };
  return isOneOfItsOwn(window.windowClass) || isOneOfItsOwn(window.applicationID);
}

const FileManagerProgram* programOf(const Window& window) {
  const auto* const program =
      std::ranges::find_if(programs, [&](const FileManagerProgram& known) { return isOf(window, known); });
  return program != programs.end() ? program : nullptr;
}

const FileManagerProgram* programOf(std::optional<pid_t> pid) {
  const auto file = DesktopSupport::ProcessInfo(pid).executable();
  const auto* const program =
      std::ranges::find(programs, file ? file->filename().string() : "", &FileManagerProgram::name);
  return program != programs.end() ? program : nullptr;
}

// A dialog shows no folder, nor does the desktop's background.
bool canShowAFolder(const Window& window) {
  return window.isOrdinary && !window.transientFor;
}

// The source may not know a window's process. Then every window of the program's class counts as the file manager's:
// all of these programs but one show their windows in one process.
bool isOf(const Window& window, const FileManager& fileManager) {
  if (window.pid)
    return window.pid == fileManager.pid;
  return fileManager.program != nullptr && isOf(window, *fileManager.program);
}

void addOnBus(FileManagers& fileManagers, const BusDaemon& daemon) {
  for (const char* name : alwaysAskedFor) {
    auto owner = daemon.ownerOf(name);
    if (!owner || std::ranges::find(fileManagers, *owner, &FileManager::connection) != fileManagers.end())
      continue;
    const auto pid = daemon.processOf(*owner);
    fileManagers.push_back({.connection = std::move(*owner), .pid = pid, .program = programOf(pid)});
  }
}

// The process of a window, or of the program that the window's class names.
std::optional<pid_t> processOf(const Window& window, const FileManagerProgram& program, const SessionBus* bus,
                               milliseconds patience) {
  if (window.pid || bus == nullptr || program.busName == nullptr)
    return window.pid;
  return BusDaemon(*bus, patience).processOf(program.busName);
}

// Gives the window to its file manager, which is made if none of those known has it.
void add(FileManagers& fileManagers, const Window& window, const SessionBus* bus, milliseconds patience) {
  if (!canShowAFolder(window))
    return;
  bool isGiven = false;
  for (FileManager& fileManager : fileManagers)
    if (isOf(window, fileManager)) {
      fileManager.windows.push_back(window);
      isGiven = true;
    }
  const FileManagerProgram* const program = programOf(window);
  if (!isGiven && program != nullptr)
    fileManagers.push_back(
        {.pid = processOf(window, *program, bus, patience), .program = program, .windows = {window}});
}

}  // namespace

FileManagers runningFileManagers(const SessionBus* bus, const WindowsOnScreen& screen, milliseconds patience) {
  FileManagers fileManagers;
  if (bus != nullptr)
    addOnBus(fileManagers, BusDaemon(*bus, patience));
  if (!screen)
    return fileManagers;
  for (const Window& window : topmostFirst(*screen))
    add(fileManagers, window, bus, patience);
  for (FileManager& fileManager : fileManagers)
    fileManager.areWindowsKnown = screen->isComplete;
  return fileManagers;
}

std::string nameOf(const FileManager& fileManager) {
  if (const auto file = DesktopSupport::ProcessInfo(fileManager.pid).executable())
    return DesktopSupport::displayable(file->filename().string());
  return fileManager.program != nullptr ? std::string(fileManager.program->name) : "A file manager";
}

}  // namespace ScriptableApps

#include "ScriptableApps/Finder/RunningFileManagers.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "DesktopSupport/System/DisplayableText.h"
#include "DesktopSupport/System/ProcessInfo.h"

namespace ScriptableApps {

namespace {

using DesktopSupport::BusError;
using DesktopSupport::SessionBus;
using DesktopSupport::VariantHandle;
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

std::expected<VariantHandle, BusError> askBus(const SessionBus& bus, const char* method, const char* name,
                                              const char* replyType, milliseconds patience) {
  return bus.call({.destination = "org.freedesktop.DBus",
                   .path = "/org/freedesktop/DBus",
                   .interface = "org.freedesktop.DBus",
                   .name = method},
                  g_variant_new("(s)", name), G_VARIANT_TYPE(replyType), patience);
}

std::optional<std::string> ownerOf(const SessionBus& bus, const char* name, milliseconds patience) {
  const auto reply = askBus(bus, "GetNameOwner", name, "(s)", patience);
  if (!reply)
    return std::nullopt;
  const char* owner = nullptr;
  g_variant_get(reply->get(), "(&s)", &owner);
  return owner;
}

std::optional<pid_t> processOf(const SessionBus& bus, const std::string& connection, milliseconds patience) {
  const auto reply = askBus(bus, "GetConnectionUnixProcessID", connection.c_str(), "(u)", patience);
  if (!reply)
    return std::nullopt;
  guint32 pid = 0;
  g_variant_get(reply->get(), "(u)", &pid);
  return static_cast<pid_t>(pid);
}

bool isOfFileManager(const DesktopSupport::Window& window) {
  const std::string windowClass = DesktopSupport::lowerCase(window.windowClass);
  return window.isOrdinary && window.pid &&
         std::ranges::find(fileManagerClasses, windowClass) != fileManagerClasses.end();
}

}  // namespace

FileManagers fileManagersOn(const SessionBus& bus, milliseconds patience) {
  FileManagers fileManagers;
  for (const char* name : fileManagerNames)
    if (const auto owner = ownerOf(bus, name, patience))
      addNew(fileManagers, {.connection = *owner, .pid = processOf(bus, *owner, patience)});
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

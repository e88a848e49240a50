#include "ScriptableApps/Finder/DolphinFolders.h"

#include <algorithm>
#include <optional>
#include <set>
#include <utility>

#include "DesktopSupport/Bus/BusDaemon.h"
#include "DesktopSupport/System/GLibHandles.h"
#include "DesktopSupport/System/UserFolders.h"
#include "ScriptableApps/Finder/WindowOrder.h"
#include "ScriptableApps/Finder/WindowTitles.h"

namespace ScriptableApps {

namespace {

using DesktopSupport::BusError;
using DesktopSupport::Window;
namespace BusErrorName = DesktopSupport::BusErrorName;

// A process of Dolphin, which has one window.
struct Instance {
  std::string busName;
  std::optional<pid_t> pid;
};
constexpr std::string_view busNameStart = "org.kde.dolphin-";

// All that are on the bus.
std::vector<Instance> runningInstances(const FolderSources& sources) {
  const DesktopSupport::BusDaemon daemon(*sources.bus, sources.patience);
  std::vector<Instance> instances;
  for (const std::string& name : daemon.names())
    if (name.starts_with(busNameStart))
      instances.push_back({.busName = name, .pid = daemon.processOf(name)});
  return instances;
}

// The file manager's instance, or all of them if the windows don't tell their processes.
std::vector<Instance> instancesOf(const FileManager& fileManager, const FolderSources& sources) {
  if (fileManager.pid && std::ranges::all_of(fileManager.windows, &std::optional<pid_t>::has_value, &Window::pid))
    return {{.busName = std::string(busNameStart) + std::to_string(*fileManager.pid), .pid = fileManager.pid}};
  return runningInstances(sources);
}

std::set<std::string> candidates(const Instance& instance, const FileManager& fileManager, WatchedFolders& watched) {
  std::set<std::string> locations;
  const auto add = [&](const std::filesystem::path& folder) {
    const DesktopSupport::CharsHandle uri(g_filename_to_uri(folder.c_str(), nullptr, nullptr));
    if (uri)
      locations.insert(uri.get());
  };
  add("/");
  add(DesktopSupport::homeFolder());
  for (const Window& window : fileManager.windows)
    if (auto location = folderTitle(window, fileManager).location)
      locations.insert(std::move(*location));
  if (instance.pid)
    for (const std::filesystem::path& folder : watched.of(*instance.pid).folders)
      add(folder);
  return locations;
}

std::expected<bool, BusError> isOpen(const std::string& location, const Instance& instance,
                                     const FolderSources& sources) {
  const auto reply = sources.bus->call({.destination = instance.busName,
                                        .path = "/dolphin/Dolphin_1",
                                        .interface = "org.kde.dolphin.MainWindow",
                                        .name = "isUrlOpen"},
                                       g_variant_new("(s)", location.c_str()), G_VARIANT_TYPE("(b)"), sources.patience);
  if (!reply)
    return std::unexpected(reply.error());
  gboolean answer = FALSE;
  g_variant_get(reply->get(), "(b)", &answer);
  return answer != FALSE;
}

// A Dolphin in a sandbox, or of another session, has another name on the bus or none.
bool isAbsent(const BusError& error) {
  return error.name == BusErrorName::serviceUnknown || error.name == BusErrorName::nameHasNoOwner;
}

std::expected<std::vector<std::string>, BusError> openLocationsIn(const Instance& instance,
                                                                  const FileManager& fileManager,
                                                                  const FolderSources& sources) {
  std::vector<std::string> open;
  for (const std::string& location : candidates(instance, fileManager, sources.watched)) {
    const auto answer = isOpen(location, instance, sources);
    if (!answer)
      return std::unexpected(answer.error());
    if (*answer)
      open.push_back(location);
  }
  return open;
}

// Puts the tab that the window's title names before the others.
void showFirst(const FolderTitle& title, std::vector<std::string>& locations) {
  std::ranges::stable_partition(locations, [&](const std::string& location) { return mayName(title, location); });
}

}  // namespace

std::expected<FoundWindows, BusError> dolphinFolders(const FileManager& fileManager, const FolderSources& sources) {
  if (sources.bus == nullptr || fileManager.isSilent || fileManager.windows.empty() || fileManager.program == nullptr ||
      fileManager.program->name != "dolphin")
    return std::unexpected(doesNotReport(fileManager));
  FoundWindows found{.isFinal = true, .unknown = fileManager.windows.size()};
  BusError failure = doesNotReport(fileManager);
  bool hasAnyAnswered = false;
  for (const Instance& instance : instancesOf(fileManager, sources)) {
    auto open = openLocationsIn(instance, fileManager, sources);
    hasAnyAnswered |= open.has_value();
    if (open && !open->empty())
      found.windows.push_back({.locations = std::move(*open)});
    if (!open && !isAbsent(open.error()))
      failure = std::move(open.error());
    // The others are not worth waiting for one by one.
    if (failure.name == BusErrorName::timeout)
      break;
  }
  if (!hasAnyAnswered)
    return std::unexpected(std::move(failure));
  placeOnScreen(found.windows, fileManager);
  for (FileManagerWindow& window : found.windows)
    if (const auto shown = std::ranges::find(fileManager.windows, window.id, &Window::id);
        shown != fileManager.windows.end()) {
      showFirst(folderTitle(*shown, fileManager), window.locations);
      --found.unknown;
    }
  return found;
}

}  // namespace ScriptableApps

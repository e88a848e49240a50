#include "DesktopSupport/Windows/Accessible/AccessibleWindows.h"

#include <algorithm>
#include <string>
#include <system_error>
#include <unordered_set>
#include <utility>

#include "DesktopSupport/Bus/BusDaemon.h"
#include "DesktopSupport/System/UserFolders.h"

namespace DesktopSupport {

namespace {

// After a sentence about what is missing.
const char* const advice =
    " To list all windows, install the GNOME Shell extension of Gleanery, log in again, and run: gnome-extensions "
    "enable gleanery@quillary.com";

// Such a program may run without a window, in the background.
bool startsWithSession(const ApplicationUnit& unit) {
  const auto hasEntry = [&unit](const std::filesystem::path& folder) {
    std::error_code ignored;
    return std::filesystem::exists(folder / "autostart" / (unit.applicationID + ".desktop"), ignored);
  };
  return unit.random == "autostart" || std::ranges::any_of(configurationFolders(), hasEntry);
}

bool mayHaveWindows(const StartedApplication& application, DesktopEntries& entries) {
  const DesktopEntry* entry = entries.find(application.unit.applicationID);
  return entry != nullptr && entry->isShown && !startsWithSession(application.unit);
}

class Joiner {
 public:
  void add(const AccessibleProgram& program) {
    if (program.pid)
      seen_.insert(*program.pid);
    for (const AccessibleWindow& window : program.windows) {
      add({.windowClass = program.name, .pid = program.pid, .isHidden = window.isMinimized});
      if (window.isActive)
        list_.active = list_.windows.back().id;
    }
  }

  void add(const StartedApplication& application) {
    add({.applicationID = application.unit.applicationID, .pid = application.mainProcess()});
  }

  // Whether one of the application's processes is a program that has been added.
  [[nodiscard]] bool hasSeen(const StartedApplication& application) const {
    return std::ranges::any_of(application.processes, [this](pid_t process) { return seen_.contains(process); });
  }

  WindowList finish() { return std::move(list_); }

 private:
  void add(Window window) {
    window.id = list_.windows.size() + 1;
    list_.windows.push_back(std::move(window));
  }

  WindowList list_ = {.windows = {}, .isComplete = false};
  std::unordered_set<pid_t> seen_;
};

}  // namespace

WindowList joinedWindows(const std::vector<AccessibleProgram>& programs, const std::vector<StartedApplication>& started,
                         DesktopEntries& entries) {
  Joiner joiner;
  for (const AccessibleProgram& program : programs)
    joiner.add(program);
  for (const StartedApplication& application : started)
    if (!joiner.hasSeen(application) && mayHaveWindows(application, entries))
      joiner.add(application);
  return joiner.finish();
}

std::expected<WindowList, DesktopError> readAccessibleWindows(const SessionBus& bus,
                                                              const std::filesystem::path& slice) {
  if (!BusDaemon(bus, accessibilityTime).ownerOf("org.gnome.Shell"))
    return std::unexpected(DesktopError{.message = "GNOME Shell does not run.", .isAbsent = true});
  const auto programs = accessiblePrograms(bus);
  const auto started = startedApplications(slice);
  if (!programs && started.empty())
    return std::unexpected(DesktopError{
        std::string("GNOME Shell does not tell which windows are open, and there is no accessibility bus.") + advice});
  DesktopEntries entries(applicationFolders());
  WindowList list = joinedWindows(programs.value_or(std::vector<AccessibleProgram>()), started, entries);
  list.problems.emplace_back(std::string("GNOME Shell does not tell which windows are open. Only programs that support "
                                         "screen readers, or that it started in a unit of their own, are listed.") +
                             advice);
  return list;
}

std::expected<WindowList, DesktopError> readAccessibleWindows() {
  const auto bus = SessionBus::connect();
  if (!bus)
    return std::unexpected(DesktopError{.message = bus.error().message, .isAbsent = true});
  return readAccessibleWindows(*bus);
}

}  // namespace DesktopSupport

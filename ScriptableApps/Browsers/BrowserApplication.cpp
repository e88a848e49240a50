#include "ScriptableApps/Browsers/BrowserApplication.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <map>
#include <memory>
#include <ranges>
#include <unordered_map>
#include <utility>

#include "BrowserSessions/BrowserSession.h"
#include "DesktopSupport/Screen/Screen.h"
#include "DesktopSupport/System/SystemLog.h"
#include "ScriptableApps/Errors/ApplicationErrors.h"

namespace ScriptableApps {

namespace {

using BrowserSessions::SessionReading;
using DesktopSupport::Window;
using DesktopSupport::WindowList;

// The processes that show windows, in the order of their topmost windows.
std::vector<pid_t> windowProcesses(const WindowList& list) {
  std::unordered_map<DesktopSupport::WindowID, pid_t> owners;
  for (const Window& window : list.windows)
    if (window.pid)
      owners.emplace(window.id, *window.pid);
  std::vector<pid_t> processes;
  for (const DesktopSupport::WindowID window : list.stack | std::views::reverse)
    if (const auto owner = owners.find(window);
        owner != owners.end() && std::ranges::find(processes, owner->second) == processes.end())
      processes.push_back(owner->second);
  return processes;
}

// The titles of the windows of a process, without dialogs.
std::vector<std::string> windowTitles(const WindowList& list, std::optional<pid_t> process) {
  std::vector<std::string> titles;
  for (const Window& window : list.windows)
    if (process && window.pid == process && window.isOrdinary && !window.transientFor)
      titles.push_back(window.title);
  return titles;
}

// Each browser with the place of its process among those that show windows, 0 for the one in front. Browsers without
// windows come last and keep their order.
using BrowsersByPlace = std::multimap<std::ptrdiff_t, RunningBrowser>;

BrowsersByPlace sortedByPlace(std::vector<RunningBrowser> browsers, const std::vector<pid_t>& processes) {
  BrowsersByPlace sorted;
  for (RunningBrowser& browser : browsers) {
    const auto place = browser.process ? std::ranges::find(processes, *browser.process) : processes.end();
    sorted.emplace(place - processes.begin(), std::move(browser));
  }
  return sorted;
}

// What all browsers together have open. Fails if none of them could be read.
std::expected<SessionReading, std::string> joinedReading(const BrowsersByPlace& browsers, const WindowList& windows) {
  SessionReading all;
  bool isAnyRead = false;
  for (const auto& [place, browser] : browsers) {
    auto reading = browser.read(windowTitles(windows, browser.process));
    isAnyRead = isAnyRead || reading;
    if (!reading)
      reading = SessionReading{.session = {}, .problems = {std::move(reading.error())}};
    std::ranges::move(reading->session, std::back_inserter(all.session));
    std::ranges::move(reading->problems, std::back_inserter(all.problems));
  }
  if (!isAnyRead)
    return std::unexpected(std::move(all.problems.front()));
  BrowserSessions::leaveOutLongAddresses(all);
  return all;
}

}  // namespace

AppleScript::Result<AppleScript::ObjectPointer> BrowserApplication::open() {
  // Without an X server, no windows are known.
  const WindowList windows = DesktopSupport::readWindows().value_or(WindowList());
  const auto processes = windowProcesses(windows);
  auto browsers = runningBrowsers(processes);
  if (browsers.empty())
    return std::unexpected(notRunning(name()));
  const auto reading = joinedReading(sortedByPlace(std::move(browsers), processes), windows);
  if (!reading)
    return std::unexpected(applicationError(name(), AppleScript::ErrorNumber::genericError, reading.error()));
  for (const std::string& problem : reading->problems)
    DesktopSupport::writeToSystemLog(problem);
  return std::make_shared<const BrowserRoot>(*dictionary().application, reading->session);
}

}  // namespace ScriptableApps

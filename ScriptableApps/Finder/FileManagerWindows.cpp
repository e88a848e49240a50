#include "ScriptableApps/Finder/FileManagerWindows.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <ranges>
#include <utility>

#include "DesktopSupport/Screen/Screen.h"
#include "DesktopSupport/System/DisplayableText.h"
#include "ScriptableApps/Finder/DolphinFolders.h"
#include "ScriptableApps/Finder/FolderWay.h"
#include "ScriptableApps/Finder/ReportedFolders.h"
#include "ScriptableApps/Finder/RunningFileManagers.h"
#include "ScriptableApps/Finder/ShownFolders.h"
#include "ScriptableApps/Finder/WatchedFolders.h"
#include "ScriptableApps/Finder/WindowOrder.h"
#include "ScriptableApps/Finder/WindowTitles.h"

namespace ScriptableApps {

namespace {

using DesktopSupport::BusError;
using DesktopSupport::SessionBus;
using std::chrono::milliseconds;
namespace BusErrorName = DesktopSupport::BusErrorName;

// The surest way first. A further one is one more row.
constexpr std::array<FolderWay, 4> ways = {reportedFolders, dolphinFolders, foldersInTitles, shownFolders};

// What is known of a file manager.
struct Answer {
  // Its `windows` are those of which nothing is known yet.
  FileManager fileManager;
  std::size_t windowCount;
  FileManagerWindows windows = {};
  std::optional<std::size_t> finallyUnknown = {};
  std::optional<BusError> failure = {};

  explicit Answer(FileManager running) : fileManager(std::move(running)), windowCount(fileManager.windows.size()) {}

  [[nodiscard]] bool isFinal() const { return finallyUnknown.has_value(); }

  void add(std::expected<FoundWindows, BusError> found) {
    if (!found) {
      if (found.error().name == BusErrorName::timeout)
        fileManager.isSilent = true;
      if (found.error().name != BusErrorName::notSupported && !failure)
        failure = std::move(found.error());
      return;
    }
    for (const FileManagerWindow& window : found->windows)
      std::erase_if(fileManager.windows, [&](const auto& onScreen) { return onScreen.id == window.id; });
    std::ranges::move(found->windows, std::back_inserter(windows));
    if (found->isFinal)
      finallyUnknown = found->unknown;
    else if (fileManager.windows.empty() && fileManager.areWindowsKnown && !failure)
      finallyUnknown = 0;
  }

  [[nodiscard]] std::size_t unknownCount() const { return finallyUnknown.value_or(fileManager.windows.size()); }

  // Whether anything is known: a file manager without windows shows nothing.
  [[nodiscard]] bool hasReported() const { return !windows.empty() || (isFinal() && unknownCount() == 0); }

  // A sentence about what is not known, if anything.
  [[nodiscard]] std::optional<std::string> problem() const {
    if (hasReported() && unknownCount() == 0)
      return std::nullopt;
    if (hasReported())
      return nameOf(fileManager) + " does not report which folder it shows in " + std::to_string(unknownCount()) +
             " of its " + std::to_string(windowCount) + " windows.";
    if (failure)
      return nameOf(fileManager) +
             " did not report which folders it shows: " + DesktopSupport::displayable(failure->message);
    return doesNotReport(fileManager).message;
  }
};
using Answers = std::vector<Answer>;

std::vector<pid_t> processesOf(const Answers& answers) {
  std::vector<pid_t> processes;
  for (const Answer& answer : answers)
    if (!answer.isFinal() && answer.fileManager.pid)
      processes.push_back(*answer.fileManager.pid);
  return processes;
}

Answers askAll(const SessionBus* bus, const WindowsOnScreen& screen, milliseconds patience, milliseconds searchTime) {
  Answers answers;
  for (FileManager& fileManager : runningFileManagers(bus, screen, patience))
    answers.emplace_back(std::move(fileManager));
  WatchedFolders watched(searchTime);
  for (const FolderWay way : ways) {
    watched.expect(processesOf(answers));
    for (Answer& answer : answers)
      if (!answer.isFinal())
        answer.add(way(answer.fileManager, {.bus = bus, .patience = patience, .watched = watched}));
  }
  return answers;
}

// Why nothing is known of any of them.
BusError failureOf(const Answers& answers) {
  if (answers.empty())
    return {.name = std::string(BusErrorName::nameHasNoOwner), .message = "No file manager is running."};
  if (const auto& failure = answers.front().failure; failure && answers.size() == 1)
    return *failure;
  BusError all{.name = std::string(BusErrorName::notSupported), .message = ""};
  for (const Answer& answer : answers)
    all.message += (all.message.empty() ? "" : " ") + answer.problem().value_or("");
  return all;
}

std::vector<std::string> locationsOf(const FileManagerWindows& windows) {
  std::vector<std::string> locations;
  for (const FileManagerWindow& window : windows)
    locations.insert(locations.end(), window.locations.begin(), window.locations.end());
  return locations;
}

}  // namespace

BusError doesNotReport(const FileManager& fileManager) {
  return {.name = std::string(BusErrorName::notSupported),
          .message = nameOf(fileManager) + " is running but does not report which folders it shows."};
}

std::expected<OpenLocations, BusError> openLocations(milliseconds patience, milliseconds searchTime) {
  const auto screen = DesktopSupport::readWindows();
  const auto bus = SessionBus::connect();
  Answers answers = askAll(bus ? &*bus : nullptr, screen, patience, searchTime);
  if (!bus && answers.empty())
    return std::unexpected(bus.error());
  if (std::ranges::none_of(answers, &Answer::hasReported))
    return std::unexpected(failureOf(answers));
  FileManagerWindows windows;
  OpenLocations open;
  for (Answer& answer : answers) {
    if (auto problem = answer.problem())
      open.problems.push_back(std::move(*problem));
    std::ranges::move(answer.windows, std::back_inserter(windows));
  }
  sortTopmostFirst(windows, screen);
  open.locations = locationsOf(windows);
  return open;
}

}  // namespace ScriptableApps

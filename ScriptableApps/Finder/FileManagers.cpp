#include "ScriptableApps/Finder/FileManagers.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <ranges>
#include <utility>

#include "DesktopSupport/Screen/Screen.h"
#include "DesktopSupport/System/DisplayableText.h"
#include "ScriptableApps/Finder/RunningFileManagers.h"
#include "ScriptableApps/Finder/ShownWindows.h"

namespace ScriptableApps {

namespace {

using DesktopSupport::BusError;
using DesktopSupport::SessionBus;
using DesktopSupport::VariantHandle;
using std::chrono::milliseconds;
namespace BusErrorName = DesktopSupport::BusErrorName;

BusError doesNotTell(const FileManager& fileManager) {
  return {.name = std::string(BusErrorName::notSupported),
          .message = nameOf(fileManager) + " is running but does not tell what it shows."};
}

// GLib answers so for an object without the interface, depending on what else the object has.
bool saysThatItDoesNotTell(const BusError& error) {
  return error.name.starts_with("org.freedesktop.DBus.Error.Unknown") || error.name == BusErrorName::invalidArguments ||
         error.name == BusErrorName::notSupported;
}

std::expected<ShownWindows, BusError> windowsOf(const SessionBus& bus, const FileManager& fileManager,
                                                const WindowsOnScreen& screen, milliseconds patience) {
  const auto reply =
      bus.call({.destination = fileManager.connection,
                .path = "/org/freedesktop/FileManager1",
                .interface = "org.freedesktop.DBus.Properties",
                .name = "GetAll"},
               g_variant_new("(s)", "org.freedesktop.FileManager1"), G_VARIANT_TYPE("(a{sv})"), patience);
  if (!reply)
    return std::unexpected(saysThatItDoesNotTell(reply.error()) ? doesNotTell(fileManager) : reply.error());
  const VariantHandle properties(g_variant_get_child_value(reply->get(), 0));
  auto windows = shownWindows(fileManager, properties.get(), screen);
  if (!windows)
    return std::unexpected(doesNotTell(fileManager));
  return std::move(*windows);
}

// What all file managers together have answered.
struct Answers {
  ShownWindows windows = {};
  bool hasAnyTold = false;
  std::vector<BusError> failures = {};
  // A sentence for each failure.
  std::vector<std::string> problems = {};

  void add(const FileManager& fileManager, std::expected<ShownWindows, BusError> answer) {
    hasAnyTold |= answer.has_value();
    if (answer) {
      std::ranges::move(*answer, std::back_inserter(windows));
      return;
    }
    const BusError& failure = failures.emplace_back(std::move(answer.error()));
    problems.push_back(failure.name == BusErrorName::notSupported
                           ? failure.message
                           : nameOf(fileManager) +
                                 " has not told what it shows: " + DesktopSupport::displayable(failure.message));
  }

  // Why none has told.
  [[nodiscard]] BusError failure() const {
    if (failures.empty())
      return {.name = std::string(BusErrorName::nameHasNoOwner), .message = "There is no file manager."};
    if (failures.size() == 1)
      return failures.front();
    BusError all{.name = std::string(BusErrorName::notSupported), .message = problems.front()};
    for (const std::string& problem : problems | std::views::drop(1))
      all.message += ' ' + problem;
    return all;
  }
};

Answers askAll(const SessionBus* bus, milliseconds patience) {
  const auto screen = DesktopSupport::readWindows();
  const FileManagers onBus = bus != nullptr ? fileManagersOn(*bus, patience) : FileManagers();
  Answers answers;
  for (const FileManager& fileManager : onBus)
    answers.add(fileManager, windowsOf(*bus, fileManager, screen, patience));
  for (const FileManager& fileManager : otherFileManagers(screen, onBus))
    answers.add(fileManager, std::unexpected(doesNotTell(fileManager)));
  return answers;
}

// Windows that the X server doesn't know stay where they are, behind those that it does.
void bringFrontFirst(ShownWindows& windows) {
  if (windows.size() < 2)
    return;
  const auto stack = DesktopSupport::readGTKWindows();
  const auto depth = [&](const ShownWindow& window) { return std::ranges::find(stack, window.name) - stack.begin(); };
  std::ranges::stable_sort(windows, {}, depth);
}

std::vector<std::string> locationsOf(const ShownWindows& windows) {
  std::vector<std::string> locations;
  for (const ShownWindow& window : windows)
    locations.insert(locations.end(), window.locations.begin(), window.locations.end());
  return locations;
}

}  // namespace

std::expected<OpenLocations, BusError> openLocations(milliseconds patience) {
  const auto bus = SessionBus::connect();
  Answers answers = askAll(bus ? &*bus : nullptr, patience);
  if (!bus && answers.failures.empty())
    return std::unexpected(bus.error());
  if (!answers.hasAnyTold)
    return std::unexpected(answers.failure());
  bringFrontFirst(answers.windows);
  return OpenLocations{.locations = locationsOf(answers.windows), .problems = std::move(answers.problems)};
}

}  // namespace ScriptableApps

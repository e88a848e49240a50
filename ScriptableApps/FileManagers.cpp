#include "ScriptableApps/FileManagers.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <ranges>
#include <utility>

#include "DesktopSupport/DisplayableText.h"
#include "DesktopSupport/GTKWindowStack.h"
#include "DesktopSupport/WindowReader.h"
#include "ScriptableApps/RunningFileManagers.h"

namespace ScriptableApps {

namespace {

using DesktopSupport::BusError;
using DesktopSupport::SessionBus;
using DesktopSupport::VariantHandle;
using std::chrono::milliseconds;
namespace BusErrorName = DesktopSupport::BusErrorName;

using Locations = std::vector<std::string>;

// A window with the location of each of its tabs; where a file manager tells no windows, all of its locations.
struct ShownWindow {
  DesktopSupport::GTKWindowName name;
  Locations locations;
};
using Windows = std::vector<ShownWindow>;

BusError doesNotTell(const FileManager& fileManager) {
  return {.name = std::string(BusErrorName::notSupported),
          .message = nameOf(fileManager) + " is running but does not tell what it shows."};
}

Locations stringsOf(GVariant* array) {
  Locations strings;
  GVariantIter iterator;
  g_variant_iter_init(&iterator, array);
  const char* string = nullptr;
  while (g_variant_iter_next(&iterator, "&s", &string) != FALSE)
    strings.emplace_back(string);
  return strings;
}

Windows windowsOf(const std::string& fileManager, GVariant* dictionary) {
  Windows windows;
  GVariantIter iterator;
  g_variant_iter_init(&iterator, dictionary);
  while (const VariantHandle entry{g_variant_iter_next_value(&iterator)}) {
    const char* path = nullptr;
    g_variant_get_child(entry.get(), 0, "&s", &path);
    const VariantHandle tabs(g_variant_get_child_value(entry.get(), 1));
    windows.push_back({.name = {.connection = fileManager, .path = path}, .locations = stringsOf(tabs.get())});
  }
  return windows;
}

// None if the file manager doesn't tell. Some have the property of their locations and never set it.
std::optional<Windows> windowsAmong(const FileManager& fileManager, GVariant* properties,
                                    const WindowsOnScreen& screen) {
  const auto lookUp = [&](const char* name, const char* type) {
    return VariantHandle(g_variant_lookup_value(properties, name, G_VARIANT_TYPE(type)));
  };
  if (const auto windows = lookUp("OpenWindowsWithLocations", "a{sas}"))
    return windowsOf(fileManager.connection, windows.get());
  const auto locations = lookUp("OpenLocations", "as");
  if (!locations || (g_variant_n_children(locations.get()) == 0 && mayShowWindows(fileManager, screen)))
    return std::nullopt;
  return Windows{{.name = {.connection = fileManager.connection}, .locations = stringsOf(locations.get())}};
}

// GLib answers so for an object without the interface, depending on what else the object has.
bool saysThatItDoesNotTell(const BusError& error) {
  return error.name.starts_with("org.freedesktop.DBus.Error.Unknown") || error.name == BusErrorName::invalidArguments ||
         error.name == BusErrorName::notSupported;
}

std::expected<Windows, BusError> windowsOf(const SessionBus& bus, const FileManager& fileManager,
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
  auto windows = windowsAmong(fileManager, properties.get(), screen);
  if (!windows)
    return std::unexpected(doesNotTell(fileManager));
  return std::move(*windows);
}

// What all file managers together have answered.
struct Answers {
  Windows windows = {};
  bool hasAnyTold = false;
  std::vector<BusError> failures = {};
  // A sentence for each failure.
  std::vector<std::string> problems = {};

  void add(const FileManager& fileManager, std::expected<Windows, BusError> answer) {
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
void bringFrontFirst(Windows& windows) {
  if (windows.size() < 2)
    return;
  const auto stack = DesktopSupport::readGTKWindowStack();
  const auto depth = [&](const ShownWindow& window) { return std::ranges::find(stack, window.name) - stack.begin(); };
  std::ranges::stable_sort(windows, {}, depth);
}

Locations locationsOf(const Windows& windows) {
  Locations locations;
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

#include "ScriptableApps/Finder/FileManagerWindows.h"

#include <algorithm>
#include <iterator>
#include <ranges>
#include <utility>

#include "DesktopSupport/Screen/Screen.h"
#include "DesktopSupport/System/DisplayableText.h"

namespace ScriptableApps {

namespace {

using DesktopSupport::BusError;
using DesktopSupport::SessionBus;
using DesktopSupport::VariantHandle;
using std::chrono::milliseconds;
namespace BusErrorName = DesktopSupport::BusErrorName;

std::vector<std::string> stringsOf(GVariant* array) {
  std::vector<std::string> strings;
  GVariantIter iterator;
  g_variant_iter_init(&iterator, array);
  const char* string = nullptr;
  while (g_variant_iter_next(&iterator, "&s", &string) != FALSE)
    strings.emplace_back(string);
  return strings;
}

FileManagerWindows windowsIn(const std::string& connection, GVariant* dictionary) {
  FileManagerWindows windows;
  GVariantIter iterator;
  g_variant_iter_init(&iterator, dictionary);
  while (const VariantHandle entry{g_variant_iter_next_value(&iterator)}) {
    const char* path = nullptr;
    g_variant_get_child(entry.get(), 0, "&s", &path);
    const VariantHandle tabs(g_variant_get_child_value(entry.get(), 1));
    windows.push_back({.name = {.connection = connection, .path = path}, .locations = stringsOf(tabs.get())});
  }
  return windows;
}

BusError doesNotReport(const FileManager& fileManager) {
  return {.name = std::string(BusErrorName::notSupported),
          .message = nameOf(fileManager) + " is running but does not report which folders it shows."};
}

// GLib answers in one of these ways if an object lacks the interface, depending on what else the object has.
bool isUnsupported(const BusError& error) {
  return error.name.starts_with("org.freedesktop.DBus.Error.Unknown") || error.name == BusErrorName::invalidArguments ||
         error.name == BusErrorName::notSupported;
}

std::expected<FileManagerWindows, BusError> windowsOf(const SessionBus& bus, const FileManager& fileManager,
                                                      const WindowsOnScreen& screen, milliseconds patience) {
  const auto reply =
      bus.call({.destination = fileManager.connection,
                .path = "/org/freedesktop/FileManager1",
                .interface = "org.freedesktop.DBus.Properties",
                .name = "GetAll"},
               g_variant_new("(s)", "org.freedesktop.FileManager1"), G_VARIANT_TYPE("(a{sv})"), patience);
  if (!reply)
    return std::unexpected(isUnsupported(reply.error()) ? doesNotReport(fileManager) : reply.error());
  const VariantHandle properties(g_variant_get_child_value(reply->get(), 0));
  auto windows = reportedWindows(fileManager, properties.get(), screen);
  if (!windows)
    return std::unexpected(doesNotReport(fileManager));
  return std::move(*windows);
}

// The answers of all file managers.
struct Answers {
  FileManagerWindows windows = {};
  bool hasAnyReported = false;
  std::vector<BusError> failures = {};
  // A sentence for each failure.
  std::vector<std::string> problems = {};

  void add(const FileManager& fileManager, std::expected<FileManagerWindows, BusError> answer) {
    hasAnyReported |= answer.has_value();
    if (answer) {
      std::ranges::move(*answer, std::back_inserter(windows));
      return;
    }
    const BusError& failure = failures.emplace_back(std::move(answer.error()));
    problems.push_back(failure.name == BusErrorName::notSupported
                           ? failure.message
                           : nameOf(fileManager) + " did not report which folders it shows: " +
                                 DesktopSupport::displayable(failure.message));
  }

  // Why none of them reported.
  [[nodiscard]] BusError failure() const {
    if (failures.empty())
      return {.name = std::string(BusErrorName::nameHasNoOwner), .message = "No file manager is running."};
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
    answers.add(fileManager, std::unexpected(doesNotReport(fileManager)));
  return answers;
}

// Windows that the X server does not know keep their order, after those that it knows.
void sortTopmostFirst(FileManagerWindows& windows) {
  if (windows.size() < 2)
    return;
  const auto stack = DesktopSupport::readGTKWindows();
  const auto depth = [&](const FileManagerWindow& window) {
    return std::ranges::find(stack, window.name) - stack.begin();
  };
  std::ranges::stable_sort(windows, {}, depth);
}

std::vector<std::string> locationsOf(const FileManagerWindows& windows) {
  std::vector<std::string> locations;
  for (const FileManagerWindow& window : windows)
    locations.insert(locations.end(), window.locations.begin(), window.locations.end());
  return locations;
}

}  // namespace

std::optional<FileManagerWindows> reportedWindows(const FileManager& fileManager, GVariant* properties,
                                                  const WindowsOnScreen& screen) {
  const auto lookUp = [&](const char* name, const char* type) {
    return VariantHandle(g_variant_lookup_value(properties, name, G_VARIANT_TYPE(type)));
  };
  if (const auto windows = lookUp("OpenWindowsWithLocations", "a{sas}"))
    return windowsIn(fileManager.connection, windows.get());
  const auto locations = lookUp("OpenLocations", "as");
  // Some file managers have this property and never set it.
  if (!locations || (g_variant_n_children(locations.get()) == 0 && mayShowWindows(fileManager, screen)))
    return std::nullopt;
  return FileManagerWindows{{.name = {.connection = fileManager.connection}, .locations = stringsOf(locations.get())}};
}

std::expected<OpenLocations, BusError> openLocations(milliseconds patience) {
  const auto bus = SessionBus::connect();
  Answers answers = askAll(bus ? &*bus : nullptr, patience);
  if (!bus && answers.failures.empty())
    return std::unexpected(bus.error());
  if (!answers.hasAnyReported)
    return std::unexpected(answers.failure());
  sortTopmostFirst(answers.windows);
  return OpenLocations{.locations = locationsOf(answers.windows), .problems = std::move(answers.problems)};
}

}  // namespace ScriptableApps

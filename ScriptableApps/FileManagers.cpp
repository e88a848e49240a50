#include "ScriptableApps/FileManagers.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <utility>

#include "DesktopSupport/GTKWindowStack.h"

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

// Only one program has the first name; others that run beside it can be found by their own.
constexpr std::array fileManagerNames = {"org.freedesktop.FileManager1", "org.gnome.Nautilus", "org.Nemo"};

BusError noFileManager() {
  return {.name = std::string(BusErrorName::nameHasNoOwner), .message = "There is no file manager."};
}

std::expected<std::string, BusError> ownerOf(const SessionBus& bus, const char* name, milliseconds patience) {
  const auto reply = bus.call({.destination = "org.freedesktop.DBus",
                               .path = "/org/freedesktop/DBus",
                               .interface = "org.freedesktop.DBus",
                               .name = "GetNameOwner"},
                              g_variant_new("(s)", name), G_VARIANT_TYPE("(s)"), patience);
  if (!reply)
    return std::unexpected(reply.error());
  const char* owner = nullptr;
  g_variant_get(reply->get(), "(&s)", &owner);
  return owner;
}

// The connections of the file managers that run, each once.
std::vector<std::string> runningFileManagers(const SessionBus& bus, milliseconds patience) {
  std::vector<std::string> owners;
  for (const char* name : fileManagerNames)
    if (auto owner = ownerOf(bus, name, patience); owner && std::ranges::find(owners, *owner) == owners.end())
      owners.push_back(std::move(*owner));
  return owners;
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

std::optional<Windows> windowsAmong(const std::string& fileManager, GVariant* properties) {
  const auto lookUp = [&](const char* name, const char* type) {
    return VariantHandle(g_variant_lookup_value(properties, name, G_VARIANT_TYPE(type)));
  };
  if (const auto windows = lookUp("OpenWindowsWithLocations", "a{sas}"))
    return windowsOf(fileManager, windows.get());
  if (const auto locations = lookUp("OpenLocations", "as"))
    return Windows{{.name = {.connection = fileManager}, .locations = stringsOf(locations.get())}};
  return std::nullopt;
}

bool saysThatItDoesNotTell(const BusError& error) {
  return error.name.starts_with("org.freedesktop.DBus.Error.Unknown");
}

std::expected<Windows, BusError> windowsOf(const SessionBus& bus, const std::string& fileManager,
                                           milliseconds patience) {
  const auto reply =
      bus.call({.destination = fileManager,
                .path = "/org/freedesktop/FileManager1",
                .interface = "org.freedesktop.DBus.Properties",
                .name = "GetAll"},
               g_variant_new("(s)", "org.freedesktop.FileManager1"), G_VARIANT_TYPE("(a{sv})"), patience);
  if (!reply)
    return std::unexpected(saysThatItDoesNotTell(reply.error()) ? noFileManager() : reply.error());
  const VariantHandle properties(g_variant_get_child_value(reply->get(), 0));
  auto windows = windowsAmong(fileManager, properties.get());
  if (!windows)
    return std::unexpected(noFileManager());
  return std::move(*windows);
}

// What is known after one more file manager was asked.
void add(std::expected<Windows, BusError>& known, std::expected<Windows, BusError> more) {
  if (known && more)
    std::ranges::move(*more, std::back_inserter(*known));
  else if (more || (!known && more.error().name != BusErrorName::nameHasNoOwner))
    known = std::move(more);
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

std::expected<Locations, BusError> openLocations(milliseconds patience) {
  const auto bus = SessionBus::connect();
  if (!bus)
    return std::unexpected(bus.error());
  std::expected<Windows, BusError> windows = std::unexpected(noFileManager());
  for (const std::string& fileManager : runningFileManagers(*bus, patience))
    add(windows, windowsOf(*bus, fileManager, patience));
  if (!windows)
    return std::unexpected(windows.error());
  bringFrontFirst(*windows);
  return locationsOf(*windows);
}

}  // namespace ScriptableApps

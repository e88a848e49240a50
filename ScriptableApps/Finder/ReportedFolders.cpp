#include "ScriptableApps/Finder/ReportedFolders.h"

#include <utility>

#include "ScriptableApps/Finder/WindowOrder.h"

namespace ScriptableApps {

namespace {

using DesktopSupport::BusError;
using DesktopSupport::VariantHandle;
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

FileManagerWindows namedWindowsIn(GVariant* dictionary, const std::string& connection) {
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

// GLib answers in one of these ways if an object lacks the interface, depending on what else the object has.
bool isUnsupported(const BusError& error) {
  return error.name.starts_with("org.freedesktop.DBus.Error.Unknown") || error.name == BusErrorName::invalidArguments ||
         error.name == BusErrorName::notSupported;
}

bool mayShowWindows(const FileManager& fileManager) {
  return !fileManager.windows.empty() || !fileManager.areWindowsKnown;
}

}  // namespace

std::optional<FileManagerWindows> windowsIn(GVariant* properties, const FileManager& fileManager) {
  const auto lookUp = [&](const char* name, const char* type) {
    return VariantHandle(g_variant_lookup_value(properties, name, G_VARIANT_TYPE(type)));
  };
  if (const auto windows = lookUp("OpenWindowsWithLocations", "a{sas}"))
    return namedWindowsIn(windows.get(), fileManager.connection);
  const auto locations = lookUp("OpenLocations", "as");
  // Some file managers have this property and never set it.
  if (!locations || (g_variant_n_children(locations.get()) == 0 && mayShowWindows(fileManager)))
    return std::nullopt;
  FileManagerWindow all{.locations = stringsOf(locations.get())};
  if (!fileManager.windows.empty())
    all.id = fileManager.windows.front().id;
  return FileManagerWindows{std::move(all)};
}

std::expected<FoundWindows, BusError> reportedFolders(const FileManager& fileManager, const FolderSources& sources) {
  if (sources.bus == nullptr || fileManager.connection.empty())
    return std::unexpected(doesNotReport(fileManager));
  const auto reply = sources.bus->call({.destination = fileManager.connection,
                                        .path = "/org/freedesktop/FileManager1",
                                        .interface = "org.freedesktop.DBus.Properties",
                                        .name = "GetAll"},
                                       g_variant_new("(s)", "org.freedesktop.FileManager1"), G_VARIANT_TYPE("(a{sv})"),
                                       sources.patience);
  if (!reply)
    return std::unexpected(isUnsupported(reply.error()) ? doesNotReport(fileManager) : reply.error());
  const VariantHandle properties(g_variant_get_child_value(reply->get(), 0));
  auto windows = windowsIn(properties.get(), fileManager);
  if (!windows)
    return std::unexpected(doesNotReport(fileManager));
  placeOnScreen(*windows, fileManager);
  return FoundWindows{.windows = std::move(*windows), .isFinal = true};
}

}  // namespace ScriptableApps

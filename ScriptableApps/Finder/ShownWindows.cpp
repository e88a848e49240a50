#include "ScriptableApps/Finder/ShownWindows.h"

namespace ScriptableApps {

namespace {

using DesktopSupport::VariantHandle;

std::vector<std::string> stringsOf(GVariant* array) {
  std::vector<std::string> strings;
  GVariantIter iterator;
  g_variant_iter_init(&iterator, array);
  const char* string = nullptr;
  while (g_variant_iter_next(&iterator, "&s", &string) != FALSE)
    strings.emplace_back(string);
  return strings;
}

ShownWindows windowsOf(const std::string& fileManager, GVariant* dictionary) {
  ShownWindows windows;
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

}  // namespace

// Some file managers have the property of their locations and never set it.
std::optional<ShownWindows> shownWindows(const FileManager& fileManager, GVariant* properties,
                                         const WindowsOnScreen& screen) {
  const auto lookUp = [&](const char* name, const char* type) {
    return VariantHandle(g_variant_lookup_value(properties, name, G_VARIANT_TYPE(type)));
  };
  if (const auto windows = lookUp("OpenWindowsWithLocations", "a{sas}"))
    return windowsOf(fileManager.connection, windows.get());
  const auto locations = lookUp("OpenLocations", "as");
  if (!locations || (g_variant_n_children(locations.get()) == 0 && mayShowWindows(fileManager, screen)))
    return std::nullopt;
  return ShownWindows{{.name = {.connection = fileManager.connection}, .locations = stringsOf(locations.get())}};
}

}  // namespace ScriptableApps

#include "ScriptableApps/Finder/WindowTitles.h"

#include <utility>

#include "DesktopSupport/System/GLibHandles.h"
#include "DesktopSupport/System/Text.h"
#include "ScriptableApps/Finder/OpenFolders.h"

namespace ScriptableApps {

namespace {

using DesktopSupport::CharsHandle;

// What programs show in place of a byte that is not UTF-8. The path is then not the one shown.
constexpr std::string_view replacement = "\uFFFD";

std::optional<std::string> locationOf(std::string_view text) {
  if (!DesktopSupport::isUTF8(text) || text.contains(replacement))
    return std::nullopt;
  if (text.starts_with('/')) {
    const CharsHandle uri(g_filename_to_uri(std::string(text).c_str(), nullptr, nullptr));
    return uri ? std::optional<std::string>(uri.get()) : std::nullopt;
  }
  const CharsHandle scheme(g_uri_parse_scheme(std::string(text).c_str()));
  return scheme && text.substr(std::string_view(scheme.get()).size()).starts_with("://")
             ? std::optional<std::string>(text)
             : std::nullopt;
}

// The name before the path in "reports - /home/user/reports", if it is the path's last part.
std::optional<FolderTitle> nameAndPath(std::string_view text) {
  constexpr std::string_view separator = " - ";
  const auto end = text.find(std::string(separator) + '/');
  if (end == std::string_view::npos)
    return std::nullopt;
  const std::string_view name = text.substr(0, end);
  const std::string_view path = text.substr(end + separator.size());
  const std::string_view last = path.size() == 1 ? path : path.substr(path.rfind('/') + 1);
  auto location = name == last ? locationOf(path) : std::nullopt;
  if (!location)
    return std::nullopt;
  return FolderTitle{.name = std::string(name), .location = std::move(location)};
}

}  // namespace

FolderTitle folderTitle(std::string_view title, std::string_view end) {
  if (title.ends_with(end))
    title.remove_suffix(end.size());
  if (auto both = nameAndPath(title))
    return std::move(*both);
  if (auto location = locationOf(title))
    return {.location = std::move(location)};
  return {.name = std::string(title)};
}

FolderTitle folderTitle(const DesktopSupport::Window& window, const FileManager& fileManager) {
  return folderTitle(window.title, fileManager.program != nullptr ? fileManager.program->titleEnd : "");
}

bool mayName(const FolderTitle& title, const std::string& location) {
  if (title.location)
    return title.location == location;
  const CharsHandle path(g_filename_from_uri(location.c_str(), nullptr, nullptr));
  if (!path)
    return false;
  const CharsHandle name(g_path_get_basename(path.get()));
  return title.name == name.get() || (isHomeFolder(path.get()) && isNameOfHomeFolder(title.name));
}

std::expected<FoundWindows, DesktopSupport::BusError> foldersInTitles(const FileManager& fileManager,
                                                                      const FolderSources& /*sources*/) {
  FoundWindows found;
  for (const DesktopSupport::Window& window : fileManager.windows)
    if (auto location = folderTitle(window, fileManager).location)
      found.windows.push_back({.locations = {std::move(*location)}, .id = window.id});
  return found;
}

}  // namespace ScriptableApps

#include "ScriptableApps/OpenFolder.h"

#include <filesystem>
#include <string_view>
#include <system_error>

#include "DesktopSupport/DisplayableText.h"
#include "DesktopSupport/GLibHandles.h"
#include "ScriptableApps/HomeFolderName.h"

namespace ScriptableApps {

namespace {

using DesktopSupport::CharsHandle;
using DesktopSupport::Out;

std::string canonical(const char* path) {
  const CharsHandle canonical(g_canonicalize_filename(path, "/"));
  return canonical.get();
}

bool isThisMachine(const CharsHandle& host) {
  if (!host)
    return true;
  const std::string_view name = host.get();
  return name.empty() || name == "localhost" || name == g_get_host_name();
}

std::optional<std::string> localPath(const std::string& uri) {
  CharsHandle host;
  const CharsHandle path(g_filename_from_uri(uri.c_str(), Out(host), nullptr));
  return path && isThisMachine(host) ? std::optional<std::string>(path.get()) : std::nullopt;
}

std::optional<std::string> pathOf(const std::string& uri, MountedPlaces& places) {
  const CharsHandle scheme(g_uri_parse_scheme(uri.c_str()));
  if (!scheme)
    return std::nullopt;
  return g_ascii_strcasecmp(scheme.get(), "file") == 0 ? localPath(uri) : places.pathOf(uri);
}

std::string nameOf(const std::string& path) {
  if (path == canonical(g_get_home_dir()))
    return homeFolderName();
  const CharsHandle name(g_filename_display_basename(path.c_str()));
  return DesktopSupport::displayableName(name.get());
}

}  // namespace

std::expected<std::optional<OpenFolder>, std::string> openFolderAt(const std::string& uri, MountedPlaces& places) {
  const auto found = pathOf(uri, places);
  if (!found)
    return std::nullopt;
  const std::string path = canonical(found->c_str());
  std::error_code ignored;
  if (!std::filesystem::is_directory(path, ignored))
    return std::nullopt;
  if (!DesktopSupport::isDisplayable(path))
    return std::unexpected("The folder " + DesktopSupport::displayable(path) +
                           " is left out: its path is not one line of text.");
  return OpenFolder{.name = nameOf(path), .path = path.ends_with('/') ? path : path + '/'};
}

}  // namespace ScriptableApps

#include "ScriptableApps/Finder/OpenFolder.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include "DesktopSupport/System/DisplayableText.h"
#include "DesktopSupport/System/GLibHandles.h"
#include "DesktopSupport/System/TimeLimit.h"
#include "DesktopSupport/System/UserFolders.h"
#include "ScriptableApps/Finder/HomeFolderName.h"

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
  if (path == canonical(DesktopSupport::homeFolder().c_str()))
    return homeFolderName();
  const CharsHandle name(g_filename_display_basename(path.c_str()));
  return DesktopSupport::displayableName(name.get());
}

/// How long all folders of one list are waited for.
constexpr std::chrono::seconds longestSearch{3};

/// Which of the paths are folders; none if the file system does not say so in time.
std::optional<std::vector<bool>> areFolders(const std::vector<std::string>& paths, std::chrono::milliseconds limit) {
  const auto found = DesktopSupport::foundWithin(limit, [&paths] {
    std::string answers;
    std::error_code ignored;
    for (const std::string& path : paths)
      answers += std::filesystem::is_directory(path, ignored) ? 'y' : 'n';
    return answers;
  });
  if (!found || found->size() != paths.size())
    return std::nullopt;
  std::vector<bool> answers;
  for (const char answer : *found)
    answers.push_back(answer == 'y');
  return answers;
}

/// Which of the paths are folders. One on a network mount that does not answer counts as one: a file manager shows it.
std::vector<bool> whichAreFolders(const std::vector<std::string>& paths) {
  const auto deadline = std::chrono::steady_clock::now() + longestSearch;
  if (paths.empty())
    return {};
  if (auto answers = areFolders(paths, DesktopSupport::fileSystemTime))
    return std::move(*answers);
  std::vector<bool> oneByOne;
  for (const std::string& path : paths) {
    const auto left = std::chrono::floor<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
    const auto answer = left.count() > 0 ? areFolders({path}, std::min(left, DesktopSupport::fileSystemTime))
                                         : std::optional<std::vector<bool>>();
    oneByOne.push_back(!answer || answer->front());
  }
  return oneByOne;
}

}  // namespace

std::optional<std::string> pathAt(const std::string& uri, MountedPlaces& places) {
  const auto found = pathOf(uri, places);
  return found ? std::optional(canonical(found->c_str())) : std::nullopt;
}

FolderOrProblem folderWithPath(const std::string& path) {
  if (!DesktopSupport::isDisplayable(path))
    return std::unexpected("The folder " + DesktopSupport::displayable(path) +
                           " is left out: its path is not one line of text.");
  return OpenFolder{.name = nameOf(path), .path = path.ends_with('/') ? path : path + '/'};
}

std::vector<FolderOrProblem> openFoldersAt(const std::vector<std::string>& uris, MountedPlaces& places) {
  std::vector<std::string> paths;
  for (const std::string& uri : uris)
    if (auto path = pathAt(uri, places))
      paths.push_back(std::move(*path));
  const std::vector<bool> isFolder = whichAreFolders(paths);
  std::vector<FolderOrProblem> folders;
  for (std::size_t index = 0; index < paths.size(); ++index)
    if (isFolder[index])
      folders.push_back(folderWithPath(paths[index]));
  return folders;
}

}  // namespace ScriptableApps

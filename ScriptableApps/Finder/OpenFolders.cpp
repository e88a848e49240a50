#include "ScriptableApps/Finder/OpenFolders.h"

#include <algorithm>
#include <array>
#include <clocale>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include <libintl.h>

#include "DesktopSupport/Bus/SessionBus.h"
#include "DesktopSupport/GIO/GIO.h"
#include "DesktopSupport/System/DisplayableText.h"
#include "DesktopSupport/System/GLibHandles.h"
#include "DesktopSupport/System/TimeLimit.h"
#include "DesktopSupport/System/UserFolders.h"

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

// Switches this thread to the user's language while it exists. The rest of the process keeps its own.
class UsersLanguage {
 public:
  UsersLanguage() {
    if (locale_ != nullptr)
      before_ = uselocale(locale_);
  }
  UsersLanguage(const UsersLanguage&) = delete;
  UsersLanguage& operator=(const UsersLanguage&) = delete;
  ~UsersLanguage() {
    if (locale_ == nullptr)
      return;
    uselocale(before_);
    freelocale(locale_);
  }

 private:
  locale_t locale_ = newlocale(LC_CTYPE_MASK | LC_MESSAGES_MASK, "", nullptr);
  locale_t before_ = nullptr;
};

// What a program calls the user's home folder, as its catalogue translates it; "Home" if there is no translation.
std::string homeFolderName(const char* catalogue, const char* message) {
  const UsersLanguage language;
  bind_textdomain_codeset(catalogue, "UTF-8");
  const char* const name = dgettext(catalogue, message);
  return DesktopSupport::displayableName(name == message ? "Home" : name);
}

std::string nameOf(const std::string& path) {
  if (isHomeFolder(path))
    return homeFolderName("nautilus", "Home");
  const CharsHandle name(g_filename_display_basename(path.c_str()));
  return DesktopSupport::displayableName(name.get());
}

// The limit for asking about all folders of one list.
constexpr std::chrono::seconds longestSearch{3};

// For each path whether it is a folder, or `nullopt` if the file system does not answer within `limit`.
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

// For each path whether it is a folder. One on a network mount that does not answer counts as a folder, since a file
// manager shows it.
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

bool areMountsKnown(std::chrono::milliseconds patience) {
  const auto bus = DesktopSupport::SessionBus::connect();
  return bus && bus->call({.destination = "org.gtk.vfs.Daemon",
                           .path = "/org/gtk/vfs/mounttracker",
                           .interface = "org.freedesktop.DBus.Peer",
                           .name = "Ping"},
                          nullptr, G_VARIANT_TYPE("()"), patience);
}

}  // namespace

// Without this check, GIO would start the daemon of the virtual file systems, and wait long for one that hangs.
bool MountedPlaces::canBeAsked() {
  if (!canBeAsked_)
    canBeAsked_ = areMountsKnown(patience_);
  return *canBeAsked_;
}

std::optional<std::string> MountedPlaces::pathOf(const std::string& uri) {
  if (!canBeAsked())
    return std::nullopt;
  return DesktopSupport::mountedPath(uri);
}

bool isHomeFolder(const std::string& path) {
  return path == canonical(DesktopSupport::homeFolder().c_str());
}

bool isNameOfHomeFolder(const std::string& name) {
  // Dolphin's message has its context before a control character.
  constexpr std::array<std::pair<const char*, const char*>, 4> messages = {
      {{"nautilus", "Home"},
       {"nemo", "Home"},
       {"kio5", "KFile System Bookmarks\004Home"},
       {"kio6", "KFile System Bookmarks\004Home"}}};
  return std::ranges::any_of(
      messages, [&](const auto& message) { return name == homeFolderName(message.first, message.second); });
}

std::optional<std::string> pathAt(const std::string& uri, MountedPlaces& places) {
  const auto found = pathOf(uri, places);
  return found ? std::optional(canonical(found->c_str())) : std::nullopt;
}

FolderOrProblem folderWithPath(const std::string& path) {
  if (!DesktopSupport::isDisplayable(path))
    return std::unexpected("The folder " + DesktopSupport::displayable(path) +
                           " is left out: its path contains characters that cannot be shown.");
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

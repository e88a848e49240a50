#include "BrowserSessions/Firefox/RunningFirefox.h"

#include <algorithm>
#include <string>

#include <fcntl.h>

#include "DesktopSupport/System/FileContents.h"
#include "DesktopSupport/System/FileDescriptor.h"
#include "DesktopSupport/System/GLibHandles.h"
#include "DesktopSupport/System/UserFolders.h"

namespace BrowserSessions {

namespace {

using DesktopSupport::KeyFileHandle;
using std::filesystem::path;

// A folder of profiles, with its profiles.ini.
struct Location {
  path FirefoxHome::* base;
  const char* folder;
};

constexpr Location locations[] = {
    {&FirefoxHome::home, ".mozilla/firefox"},
    // Used since version 147 if the user has no folder of the older kind.
    {&FirefoxHome::configuration, "mozilla/firefox"},
    {&FirefoxHome::home, ".var/app/org.mozilla.firefox/.mozilla/firefox"},
    {&FirefoxHome::home, ".var/app/org.mozilla.firefox/config/mozilla/firefox"},
    {&FirefoxHome::home, "snap/firefox/common/.mozilla/firefox"},
};

constexpr std::size_t maximumSize = 1 << 20;

std::string value(GKeyFile* file, const char* group, const char* key) {
  const DesktopSupport::CharsHandle text(g_key_file_get_value(file, group, key, nullptr));
  return text ? text.get() : "";
}

// The profiles in profiles.ini. They may lie in the folder itself, or anywhere.
std::vector<path> namedProfiles(const path& folder) {
  const std::string text = DesktopSupport::fileContents(folder / "profiles.ini", maximumSize).value_or("");
  const KeyFileHandle file(g_key_file_new());
  if (g_key_file_load_from_data(file.get(), text.data(), text.size(), G_KEY_FILE_NONE, nullptr) == FALSE)
    return {};
  std::vector<path> profiles;
  const DesktopSupport::StringsHandle groups(g_key_file_get_groups(file.get(), nullptr));
  for (char** group = groups.get(); *group != nullptr; ++group)
    if (const std::string profile = value(file.get(), *group, "Path"); !profile.empty())
      profiles.push_back(folder / profile);
  return profiles;
}

// All folders in the folder: if a user can switch between profiles while Firefox runs, profiles.ini names only one of
// them.
std::vector<path> foldersIn(const path& folder) {
  std::vector<path> folders;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
    folders.push_back(entry->path());
  std::ranges::sort(folders);
  return folders;
}

// Adds a profile only once, even if links lead to it in several ways.
void addIfRunning(std::vector<RunningFirefox>& running, const path& profile) {
  std::error_code error;
  const path folder = std::filesystem::canonical(profile, error);
  if (error || std::ranges::find(running, folder, &RunningFirefox::profile) != running.end())
    return;
  if (const auto lock = firefoxLock(folder))
    running.push_back({.profile = folder, .process = lock->holder});
}

bool isProfileOption(const std::string& argument) {
  return argument == "--profile" || argument == "-profile";
}

}  // namespace

std::optional<FirefoxLock> firefoxLock(const std::filesystem::path& profile) {
  const std::filesystem::path file = profile / ".parentlock";
  const DesktopSupport::FileDescriptor descriptor(open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
  struct flock lock = {};
  lock.l_type = F_WRLCK;
  lock.l_whence = SEEK_SET;
  if (!descriptor.isOpen() || fcntl(descriptor.number(), F_GETLK, &lock) != 0 || lock.l_type == F_UNLCK)
    return std::nullopt;
  // 0 stands for a process outside of this PID namespace, a negative number for one on another computer.
  return FirefoxLock{.holder = lock.l_pid > 0 ? std::optional(lock.l_pid) : std::nullopt};
}

FirefoxHome FirefoxHome::ofUser() {
  return {.home = DesktopSupport::homeFolder(), .configuration = DesktopSupport::userConfigurationFolder()};
}

std::vector<RunningFirefox> runningFirefoxes(const FirefoxHome& home) {
  std::vector<RunningFirefox> running;
  for (const Location& location : locations) {
    const path folder = home.*location.base / location.folder;
    for (const path& profile : namedProfiles(folder))
      addIfRunning(running, profile);
    for (const path& profile : foldersIn(folder))
      addIfRunning(running, profile);
  }
  return running;
}

std::optional<path> firefoxProfileGivenTo(const DesktopSupport::ProcessInfo& process) {
  const std::vector<std::string> arguments = process.arguments();
  const auto option = std::ranges::find_if(arguments, isProfileOption);
  if (process.flatpakID() || option == arguments.end() || option + 1 == arguments.end())
    return std::nullopt;
  const path profile = *(option + 1);
  const auto lock = profile.is_absolute() ? firefoxLock(profile) : std::nullopt;
  return lock && lock->holder == process.pid() ? std::optional(profile) : std::nullopt;
}

}  // namespace BrowserSessions

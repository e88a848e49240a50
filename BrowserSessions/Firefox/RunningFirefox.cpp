#include "BrowserSessions/Firefox/RunningFirefox.h"

#include <algorithm>
#include <string>

#include "BrowserSessions/Firefox/ProfileLock.h"
#include "DesktopSupport/System/FileContents.h"
#include "DesktopSupport/System/GLibHandles.h"
#include "DesktopSupport/System/UserFolders.h"

namespace BrowserSessions {

namespace {

using DesktopSupport::KeyFileHandle;
using std::filesystem::path;

// A location is a row: a folder of profiles, with its profiles.ini.
struct Location {
  path FirefoxHome::* base;
  const char* folder;
};

constexpr Location locations[] = {
    {&FirefoxHome::home, ".mozilla/firefox"},
    // Where a home has no folder of the older kind, since version 147.
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

// The profiles that profiles.ini names: in the folder itself, or anywhere.
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

// Of the profiles among which a user switches while Firefox runs, profiles.ini names one only.
std::vector<path> foldersIn(const path& folder) {
  std::vector<path> folders;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
    folders.push_back(entry->path());
  std::ranges::sort(folders);
  return folders;
}

// One that is reached on several ways, through links, is there once.
void addIfRunning(std::vector<RunningFirefox>& running, const path& profile) {
  std::error_code error;
  const path folder = std::filesystem::canonical(profile, error);
  if (error || std::ranges::find(running, folder, &RunningFirefox::profile) != running.end())
    return;
  if (const auto lock = profileLock(folder))
    running.push_back({.profile = folder, .process = lock->holder});
}

bool isProfileOption(const std::string& argument) {
  return argument == "--profile" || argument == "-profile";
}

}  // namespace

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
  const auto lock = profile.is_absolute() ? profileLock(profile) : std::nullopt;
  return lock && lock->holder == process.pid() ? std::optional(profile) : std::nullopt;
}

}  // namespace BrowserSessions

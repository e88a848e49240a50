#include "BrowserSessions/Chromium/RunningChromium.h"

#include <algorithm>
#include <climits>
#include <string>
#include <system_error>

#include "BrowserSessions/Chromium/ChromiumBrowser.h"
#include "DesktopSupport/System/FileContents.h"
#include "DesktopSupport/System/Text.h"
#include "DesktopSupport/System/UserFolders.h"

namespace BrowserSessions {

namespace {

using DesktopSupport::ProcessInfo;
using std::filesystem::directory_iterator;
using std::filesystem::path;

std::optional<pid_t> processNumber(std::string_view text) {
  const auto number = DesktopSupport::parseNumber<pid_t>(text);
  return number > 0 ? number : std::nullopt;
}

// The lock is a link to "<host>-<process>"; the host's name may contain a '-' too.
std::optional<pid_t> lockHolder(const path& userData) {
  std::error_code error;
  const std::string target = std::filesystem::read_symlink(userData / "SingletonLock", error).string();
  const auto dash = target.rfind('-');
  return !error && dash != std::string::npos ? processNumber(std::string_view(target).substr(dash + 1)) : std::nullopt;
}

// A running browser shows all its arguments as a single one, with spaces between them.
std::string commandLine(const ProcessInfo& process) {
  std::string line;
  for (const std::string& argument : process.arguments())
    line += argument + ' ';
  return line;
}

// Whether the process runs the browser's program and is not one of its helpers, which run the same program.
bool isBrowser(const ProcessInfo& process, const ChromiumBrowser& browser) {
  const std::string line = commandLine(process);
  const path program = process.executable().value_or(line.substr(0, line.find(' ')));
  const bool isProgram = std::ranges::find(browser.programs, program.filename().native()) != browser.programs.end();
  return isProgram && line.find(" --type=") == std::string::npos;
}

// The number of the process inside of its sandbox.
std::optional<pid_t> innermostNumber(const path& process) {
  constexpr std::size_t maximumSize = 1 << 16;
  const auto status = DesktopSupport::fileContents(process / "status", maximumSize);
  if (!status)
    return std::nullopt;
  for (const std::string_view line : DesktopSupport::separated(*status, '\n'))
    if (line.starts_with("NSpid:"))
      return processNumber(line.substr(line.find_last_of("\t ") + 1));
  return std::nullopt;
}

std::optional<pid_t> sandboxedProcess(pid_t number, const ChromiumBrowser& browser, std::string_view application,
                                      const path& processes) {
  std::error_code error;
  for (directory_iterator entry(processes, error), end; !error && entry != end; entry.increment(error)) {
    const auto outer = processNumber(entry->path().filename().native());
    if (!outer || innermostNumber(entry->path()) != number)
      continue;
    const ProcessInfo process(outer, processes);
    if (process.flatpakID() == application && isBrowser(process, browser))
      return outer;
  }
  return std::nullopt;
}

struct UserDataFolder {
  path folder;
  // The Flatpak application that has the folder.
  std::optional<std::string_view> flatpak;
};

std::vector<UserDataFolder> userDataFolders(const ChromiumBrowser& browser, const ChromiumPlaces& places) {
  std::vector<UserDataFolder> folders;
  for (const std::string_view folder : browser.configurationFolders)
    folders.push_back({places.configuration / folder, std::nullopt});
  for (const auto& [application, folder] : browser.flatpakFolders)
    folders.push_back({places.home / ".var/app" / application / "config" / folder, application});
  for (const std::string_view folder : browser.snapFolders)
    folders.push_back({places.home / folder, std::nullopt});
  return folders;
}

std::optional<pid_t> processWith(const UserDataFolder& userData, const ChromiumBrowser& browser,
                                 const path& processes) {
  const auto holder = lockHolder(userData.folder);
  if (holder && userData.flatpak)
    return sandboxedProcess(*holder, browser, *userData.flatpak, processes);
  return holder && isBrowser(ProcessInfo(holder, processes), browser) ? holder : std::nullopt;
}

// The folder that the option names, if the process holds its lock. Both the folder's name and the rest of the command
// line may have spaces, so each space is tried as the end of the name.
std::optional<path> givenUserData(const ProcessInfo& process) {
  constexpr std::string_view option = " --user-data-dir=/";
  const std::string line = commandLine(process);
  const auto start = line.rfind(option);
  if (start == std::string::npos)
    return std::nullopt;
  const std::string_view rest = std::string_view(line).substr(start + option.size() - 1, PATH_MAX);
  for (auto end = rest.find(' '); end != std::string::npos; end = rest.find(' ', end + 1))
    if (lockHolder(rest.substr(0, end)) == process.pid())
      return rest.substr(0, end);
  return std::nullopt;
}

}  // namespace

ChromiumPlaces chromiumPlaces() {
  using namespace DesktopSupport;
  return {.home = homeFolder(),
          .configuration = folderNamedBy("CHROME_CONFIG_HOME").value_or(userConfigurationFolder())};
}

std::vector<RunningChromium> runningChromiumBrowsers(const ChromiumPlaces& places) {
  std::vector<RunningChromium> running;
  for (const ChromiumBrowser& browser : chromiumBrowsers())
    for (UserDataFolder& userData : userDataFolders(browser, places))
      if (const auto process = processWith(userData, browser, places.processes))
        running.push_back({browser.name, *process, std::move(userData.folder)});
  return running;
}

std::optional<RunningChromium> chromiumWithGivenUserData(const ProcessInfo& process) {
  const auto userData = givenUserData(process);
  const auto number = process.pid();
  if (!userData || !number)
    return std::nullopt;
  for (const ChromiumBrowser& browser : chromiumBrowsers())
    if (isBrowser(process, browser))
      return RunningChromium{browser.name, *number, *userData};
  return std::nullopt;
}

}  // namespace BrowserSessions

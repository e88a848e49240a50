#include "BrowserSessions/Firefox/FirefoxSession.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <set>
#include <utility>
#include <vector>

#include "BrowserSessions/BrowserFiles.h"
#include "BrowserSessions/Companion/Companions.h"
#include "BrowserSessions/Firefox/FirefoxState.h"
#include "BrowserSessions/Firefox/MozillaLZ4.h"
#include "DesktopSupport/System/DisplayableText.h"
#include "DesktopSupport/System/FileContents.h"

namespace BrowserSessions {

namespace {

constexpr std::size_t maximumSize = 64 << 20;
constexpr std::string_view schemeEnd = "://";

// The time at which the profile was locked. Firefox makes the link as soon as it has the lock. On a file system without
// links there is only the lock's own file, which a second Firefox touches too when it finds the profile locked.
std::optional<FileTime> timeOfLock(const std::filesystem::path& profile) {
  const auto link = fileTime(profile / "lock");
  return link ? link : fileTime(profile / ".parentlock");
}

// The session in the file, if it was saved after the profile was locked.
std::expected<BrowserSession, std::string> stateIn(const std::filesystem::path& file, std::optional<FileTime> locked) {
  const auto saved = fileTime(file);
  if (saved && (!locked || *saved <= *locked))
    return std::unexpected("It has not been saved since Firefox was started.");
  const auto bytes = DesktopSupport::fileContents(file, maximumSize);
  if (!bytes)
    return std::unexpected("It does not exist, cannot be read or is too large.");
  auto json = mozillaLZ4Contents(*bytes);
  auto session = json ? firefoxState(std::move(*json)) : std::unexpected(json.error());
  if (session)
    addFirefoxNames(*session);
  return session;
}

// Whether a title is the address of its page. The two may spell the host in different ways.
bool isAddress(std::string_view title, std::string_view url) {
  const auto scheme = url.find(schemeEnd);
  if (title == url || scheme == std::string_view::npos)
    return title == url;
  const auto partsAfterHost = [start = scheme + schemeEnd.size()](std::string_view address) {
    return address.substr(std::min(address.find('/', start), address.size()));
  };
  return title.starts_with(url.substr(0, scheme + schemeEnd.size())) && partsAfterHost(title) == partsAfterHost(url);
}

// The windows of the companions, each once. Pop-ups count as windows, as in a saved session.
BrowserSession sessionIn(const std::vector<CompanionAnswer>& answers) {
  BrowserSession session;
  std::set<std::int64_t> numbers;
  for (const CompanionAnswer& answer : answers)
    for (const CompanionWindow& window : answer.windows) {
      if (window.tabs.empty() || !numbers.insert(window.number).second)
        continue;
      session.push_back(browserWindow(window));
      for (BrowserTab& tab : session.back().tabs)
        tab.url = withoutReadingView(std::move(tab.url));
    }
  addFirefoxNames(session);
  return session;
}

// What Firefox has saved.
SessionResult savedSession(const std::filesystem::path& profile) {
  const std::filesystem::path file = profile / "sessionstore-backups/recovery.jsonlz4";
  const auto locked = timeOfLock(profile);
  auto newest = stateIn(file, locked);
  if (newest)
    return SessionReading{.session = std::move(*newest)};
  auto previous = stateIn(profile / "sessionstore-backups/recovery.baklz4", locked);
  // While Firefox saves, there is no newest file for an instant.
  newest = stateIn(file, locked);
  if (newest || previous)
    return SessionReading{.session = std::move(newest ? *newest : *previous)};
  return std::unexpected("The session of Firefox in " + file.string() + " is unknown: " + newest.error());
}

}  // namespace

SessionResult firefoxSession(const std::filesystem::path& profile, std::optional<pid_t> process) {
  CompanionReading told = process ? askCompanions(*process) : CompanionReading();
  if (!told.answers.empty())
    return SessionReading{.session = sessionIn(told.answers), .problems = std::move(told.problems)};
  auto saved = savedSession(profile);
  if (saved)
    saved->problems = std::move(told.problems);
  return saved;
}

std::string firefoxPageName(std::string_view url) {
  constexpr std::string_view usualHost = "www.";
  const auto scheme = url.find(':');
  if (scheme == std::string_view::npos || !url.substr(scheme).starts_with(schemeEnd))
    return std::string(url);
  url.remove_prefix(scheme + schemeEnd.size());
  return std::string(url.substr(url.starts_with(usualHost) ? usualHost.size() : 0));
}

void addFirefoxNames(BrowserSession& session) {
  for (BrowserWindow& window : session)
    for (BrowserTab& tab : window.tabs)
      if (tab.title.empty() || isAddress(tab.title, tab.url))
        tab.title = DesktopSupport::shortened(firefoxPageName(tab.url));
      else
        tab.title = DesktopSupport::shortened(tab.title);
}

}  // namespace BrowserSessions

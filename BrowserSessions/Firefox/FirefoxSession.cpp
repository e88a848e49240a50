#include "BrowserSessions/Firefox/FirefoxSession.h"

#include <cstddef>
#include <optional>
#include <utility>

#include "BrowserSessions/FileTime.h"
#include "BrowserSessions/Firefox/FirefoxState.h"
#include "BrowserSessions/Firefox/MozillaLZ4.h"
#include "BrowserSessions/PageNames.h"
#include "DesktopSupport/System/FileContents.h"

namespace BrowserSessions {

namespace {

constexpr std::size_t maximumSize = 64 << 20;

// When the profile was locked. Firefox makes the link once it has the lock. Where links cannot be made there is the
// lock's file alone, which a second Firefox that finds the profile locked touches as well.
std::optional<FileTime> timeOfLock(const std::filesystem::path& profile) {
  const auto link = fileTime(profile / "lock");
  return link ? link : fileTime(profile / ".parentlock");
}

// What was saved in the file since the profile was locked.
std::expected<BrowserSession, std::string> stateIn(const std::filesystem::path& file, std::optional<FileTime> locked) {
  const auto saved = fileTime(file);
  if (saved && (!locked || *saved <= *locked))
    return std::unexpected("It has not been saved since Firefox was started.");
  const auto bytes = DesktopSupport::fileContents(file, maximumSize);
  if (!bytes)
    return std::unexpected("It is not there, cannot be read or is too large.");
  auto json = mozillaLZ4Contents(*bytes);
  auto session = json ? firefoxState(std::move(*json)) : std::unexpected(json.error());
  if (session)
    addFirefoxNames(*session);
  return session;
}

}  // namespace

std::expected<BrowserSession, std::string> firefoxSession(const std::filesystem::path& profile) {
  const std::filesystem::path file = profile / "sessionstore-backups/recovery.jsonlz4";
  const auto locked = timeOfLock(profile);
  auto newest = stateIn(file, locked);
  if (newest)
    return newest;
  auto previous = stateIn(profile / "sessionstore-backups/recovery.baklz4", locked);
  // When Firefox saves, there is no newest file for an instant.
  newest = stateIn(file, locked);
  if (newest || previous)
    return newest ? std::move(newest) : std::move(previous);
  return std::unexpected("The session of Firefox in " + file.string() + " is unknown: " + newest.error());
}

}  // namespace BrowserSessions

#include "BrowserSessions/FirefoxSession.h"

#include <cstddef>
#include <utility>

#include "BrowserSessions/FirefoxState.h"
#include "BrowserSessions/MozillaLZ4.h"
#include "DesktopSupport/FileContents.h"

namespace BrowserSessions {

namespace {

constexpr std::size_t maximumSize = 64 << 20;

std::expected<BrowserSession, std::string> stateIn(const std::filesystem::path& file) {
  const auto bytes = DesktopSupport::fileContents(file, maximumSize);
  if (!bytes)
    return std::unexpected("It is not there, cannot be read or is too large.");
  const auto json = mozillaLZ4Contents(*bytes);
  return json ? firefoxState(*json) : std::unexpected(json.error());
}

}  // namespace

std::expected<BrowserSession, std::string> firefoxSession(const std::filesystem::path& profile) {
  const std::filesystem::path file = profile / "sessionstore-backups/recovery.jsonlz4";
  auto newest = stateIn(file);
  if (newest)
    return newest;
  auto previous = stateIn(profile / "sessionstore-backups/recovery.baklz4");
  // When Firefox saves, there is no newest file for an instant.
  newest = stateIn(file);
  if (newest || previous)
    return newest ? std::move(newest) : std::move(previous);
  return std::unexpected("The session of Firefox in " + file.string() + " is unknown: " + newest.error());
}

}  // namespace BrowserSessions

#include "BrowserSessions/GNOMEWeb/WebSession.h"

#include <algorithm>
#include <cstddef>
#include <set>

#include "BrowserSessions/GNOMEWeb/WebState.h"
#include "DesktopSupport/System/DisplayableText.h"
#include "DesktopSupport/System/FileContents.h"

namespace BrowserSessions {

namespace {

constexpr std::size_t maximumSize = 32 << 20;

}  // namespace

std::expected<BrowserSession, std::string> webSession(const std::filesystem::path& profile) {
  const std::filesystem::path file = profile / "session_state.xml";
  const auto xml = DesktopSupport::fileContents(file, maximumSize);
  std::error_code error;
  if (!xml && std::filesystem::symlink_status(file, error).type() == std::filesystem::file_type::not_found)
    return BrowserSession();
  auto session = xml ? webState(*xml) : std::unexpected("It cannot be read or is too large.");
  if (!session)
    return std::unexpected("The session of GNOME Web in " + file.string() + " is unknown: " + session.error());
  return session;
}

bool isBehind(const BrowserSession& session, const std::vector<std::string>& windowTitles) {
  std::set<std::string> titles;
  for (const BrowserWindow& window : session)
    for (const BrowserTab& tab : window.tabs)
      titles.insert(tab.title);
  return std::ranges::any_of(
      windowTitles, [&](const std::string& title) { return !titles.contains(DesktopSupport::shortened(title)); });
}

}  // namespace BrowserSessions

#include "BrowserSessions/Chromium/ChromiumUserData.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "BrowserSessions/Chromium/BrowserRun.h"
#include "BrowserSessions/Chromium/ChromiumProfile.h"
#include "BrowserSessions/Chromium/DevTools/DevToolsSession.h"
#include "BrowserSessions/Chromium/DevTools/LiveSession.h"
#include "BrowserSessions/Chromium/OpenProfiles.h"
#include "BrowserSessions/Chromium/TitleHistory.h"
#include "BrowserSessions/LoggedSession.h"
#include "BrowserSessions/PageNames.h"

namespace BrowserSessions {

namespace {

using std::filesystem::path;

template <typename T>
void append(std::vector<T>& all, std::vector<T> more) {
  std::ranges::move(more, std::back_inserter(all));
}

// The logs of several profiles, read as far as they can be.
struct Logs {
  LoggedSession session;
  std::vector<std::string> problems;
  bool isAnyRead = false;
};

std::string leftOut(std::size_t tabs, const path& profile) {
  return "Tabs of the profile " + profile.string() +
         " that are left out, since their addresses are too long for the browser's session log: " +
         std::to_string(tabs) + '.';
}

// Titles are added where nobody else has any, and web applications told apart where somebody else takes them for
// windows. The browser itself also tells the tabs that the log leaves out.
void read(Logs& logs, const path& profile, const std::optional<BrowserRun>& run, bool isLive) {
  auto session = chromiumProfileSession(profile, run);
  if (!session) {
    logs.problems.push_back(std::move(session.error()));
    return;
  }
  logs.isAnyRead = true;
  if (isLive)
    append(logs.session.otherWindows, chromiumApplicationWindows(profile));
  else
    addTitles(session->windows, profile);
  if (!isLive && session->tabsWithoutAddress > 0)
    logs.problems.push_back(leftOut(session->tabsWithoutAddress, profile));
  append(logs.session.windows, std::move(session->windows));
  append(logs.session.otherWindows, std::move(session->otherWindows));
  logs.session.tabsWithoutAddress += session->tabsWithoutAddress;
}

// A tab that is left out may be the one whose title a window has.
void addNames(LoggedSession& session, const std::vector<std::string>& titles) {
  if (session.tabsWithoutAddress == 0)
    addWindowTitles(session.windows, titles);
  addChromiumNames(session.windows);
}

// The browser itself tells what it has open with the profile that was used last, whatever its log is like.
SessionReading withLive(const LiveSession& live, Logs logs, std::size_t profiles) {
  if (profiles == 1)
    logs.problems.clear();
  return {joined(live, logs.session), std::move(logs.problems)};
}

}  // namespace

std::expected<SessionReading, std::string> chromiumUserDataSession(const path& userData, std::optional<pid_t> process,
                                                                   const std::vector<std::string>& titles) {
  const auto run = process ? std::optional(BrowserRun(userData, *process)) : std::nullopt;
  using Told = std::expected<std::optional<LiveSession>, std::string>;
  const Told told = process ? devToolsSession(userData, *process) : Told();
  const std::optional<LiveSession> live = told.value_or(std::nullopt);
  const std::vector<path> profiles = openChromiumProfiles(userData);
  Logs logs;
  for (const path& profile : profiles)
    read(logs, profile, run, live.has_value());
  if (live)
    return withLive(*live, std::move(logs), profiles.size());
  if (!told)
    logs.problems.push_back(told.error());
  if (!logs.isAnyRead)
    return std::unexpected(profiles.empty() ? "There is no profile in " + userData.string() + '.'
                                            : std::move(logs.problems.front()));
  addNames(logs.session, titles);
  return SessionReading{browserSession(std::move(logs.session)), std::move(logs.problems)};
}

}  // namespace BrowserSessions

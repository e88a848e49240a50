#include "BrowserSessions/Chromium/ChromiumUserData.h"

#include <algorithm>
#include <expected>
#include <iterator>
#include <utility>

#include "BrowserSessions/Chromium/ChromiumProfile.h"
#include "BrowserSessions/Chromium/DevTools/DevToolsSession.h"
#include "BrowserSessions/Chromium/LoggedSession.h"
#include "BrowserSessions/Chromium/PageNames.h"
#include "BrowserSessions/Chromium/SessionFiles.h"
#include "BrowserSessions/Chromium/TitleHistory.h"
#include "BrowserSessions/Chromium/ToldSession.h"
#include "BrowserSessions/Companion/Companions.h"

namespace BrowserSessions {

namespace {

using std::filesystem::path;

// A running browser, with the arguments of `chromiumUserDataSession`.
struct Browser {
  const path& userData;
  std::optional<pid_t> process;
  const std::vector<std::string>& titles;
};

// A source of a browser's session: a reading, nothing if the browser does not offer this source, or a sentence if the
// source cannot be used.
using Answer = std::expected<std::optional<SessionReading>, std::string>;
using Source = Answer (*)(const Browser& browser);

// The session logs of a browser's profiles, as far as they can be read.
struct Logs {
  LoggedSession session;
  std::vector<std::string> problems;
  std::size_t profiles = 0;
  bool isAnyRead = false;
};

template <typename T>
void append(std::vector<T>& all, std::vector<T> more) {
  std::ranges::move(more, std::back_inserter(all));
}

// `complete` adds to each profile's session what its log lacks.
template <typename Complete>
Logs readLogs(const Browser& browser, Complete complete) {
  const auto run = browser.process ? std::optional(ChromiumRun(browser.userData, *browser.process)) : std::nullopt;
  Logs logs;
  for (const path& profile : openChromiumProfiles(browser.userData)) {
    ++logs.profiles;
    auto session = chromiumProfileSession(profile, run);
    if (!session) {
      logs.problems.push_back(std::move(session.error()));
      continue;
    }
    logs.isAnyRead = true;
    complete(logs, *session, profile);
    append(logs.session.windows, std::move(session->windows));
    append(logs.session.otherWindows, std::move(session->otherWindows));
    logs.session.tabsWithoutAddress += session->tabsWithoutAddress;
  }
  return logs;
}

// The DevTools do not tell a web application's window from a normal one.
void addApplicationWindows(Logs& /*logs*/, LoggedSession& session, const path& profile) {
  append(session.otherWindows, chromiumApplicationWindows(profile));
}

Answer readDevTools(const Browser& browser) {
  if (!browser.process)
    return std::nullopt;
  const auto answer = devToolsSession(browser.userData, *browser.process);
  if (!answer)
    return std::unexpected(answer.error());
  const std::optional<DevToolsSession>& live = *answer;
  if (!live)
    return std::nullopt;
  Logs logs = readLogs(browser, addApplicationWindows);
  // The DevTools tell everything about the profile that was used last, whether its log can be read or not.
  if (logs.profiles == 1)
    logs.problems.clear();
  return SessionReading{joined(*live, logs.session), std::move(logs.problems)};
}

void addTitlesAndProblems(Logs& logs, LoggedSession& session, const path& profile) {
  TitleHistory history(profile);
  addTitles(session.windows, history);
  if (!history.problem().empty())
    logs.problems.push_back(history.problem());
  if (session.tabsWithoutAddress > 0)
    logs.problems.push_back("Tabs of the profile " + profile.string() +
                            " left out because their addresses are too long for the browser's session log: " +
                            std::to_string(session.tabsWithoutAddress) + '.');
}

// Adds the windows of the profiles that have no companion.
void addProfilesWithoutCompanion(SessionReading& reading, const Browser& browser, const ToldSession& told) {
  Logs logs = readLogs(browser, [&told](Logs& all, LoggedSession& session, const path& profile) {
    if (hasWindowOf(told, session))
      session = {};
    else
      addTitlesAndProblems(all, session, profile);
  });
  // Then it is the logs of profiles with a companion that cannot be read.
  if (told.profiles >= logs.profiles)
    logs.problems.clear();
  addChromiumNames(logs.session.windows);
  append(reading.session, browserSession(std::move(logs.session)));
  append(reading.problems, std::move(logs.problems));
}

Answer readCompanions(const Browser& browser) {
  CompanionReading companions = browser.process ? askCompanions(*browser.process) : CompanionReading();
  if (companions.answers.empty() && !companions.problems.empty())
    return std::unexpected(std::move(companions.problems.front()));
  if (companions.answers.empty())
    return std::nullopt;
  ToldSession told = toldSession(std::move(companions.answers));
  addChromiumNames(told.windows);
  SessionReading reading{.session = {}, .problems = std::move(companions.problems)};
  const bool areAllTold = told.profiles >= numberOfChromiumProfiles(browser.userData);
  for (ChromiumWindow& window : told.windows)
    reading.session.push_back(std::move(window.contents));
  if (!areAllTold)
    addProfilesWithoutCompanion(reading, browser, told);
  return reading;
}

Answer readSessionLogs(const Browser& browser) {
  Logs logs = readLogs(browser, addTitlesAndProblems);
  if (!logs.isAnyRead)
    return std::unexpected(logs.profiles == 0 ? "There is no profile in " + browser.userData.string() + '.'
                                              : std::move(logs.problems.front()));
  // A tab that is left out may be the one whose title a window has.
  if (logs.session.tabsWithoutAddress == 0)
    addWindowTitles(logs.session.windows, browser.titles);
  addChromiumNames(logs.session.windows);
  return SessionReading{browserSession(std::move(logs.session)), std::move(logs.problems)};
}

// The most current one comes first. The first one that has a reading is used.
constexpr Source sources[] = {readCompanions, readDevTools, readSessionLogs};

}  // namespace

SessionResult chromiumUserDataSession(const path& userData, std::optional<pid_t> process,
                                      const std::vector<std::string>& titles) {
  const Browser browser = {.userData = userData, .process = process, .titles = titles};
  std::vector<std::string> problems;
  for (const Source read : sources) {
    Answer answer = read(browser);
    if (!answer) {
      problems.push_back(std::move(answer.error()));
    } else if (std::optional<SessionReading>& reading = *answer) {
      append(reading->problems, std::move(problems));
      return std::move(*reading);
    }
  }
  return std::unexpected(std::move(problems.back()));
}

}  // namespace BrowserSessions

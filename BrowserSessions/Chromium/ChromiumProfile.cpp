#include "BrowserSessions/Chromium/ChromiumProfile.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <nlohmann/json.hpp>
#include <system_error>
#include <utility>

#include "BrowserSessions/Chromium/DevTools/JSONFields.h"
#include "BrowserSessions/Chromium/SessionLog.h"
#include "BrowserSessions/Chromium/SessionReplay.h"
#include "DesktopSupport/System/FileContents.h"

namespace BrowserSessions {

namespace {

using nlohmann::json;
using std::filesystem::path;

using Session = std::expected<LoggedSession, std::string>;

constexpr std::size_t maximumStateSize = 4 << 20;
constexpr std::size_t maximumProfiles = 64;

// Makes the parser keep only the entries that are needed, since the rest is long. Of the profiles' descriptions, the
// names are kept.
bool isWanted(int depth, json::parse_event_t event, const json& parsed) {
  if (event == json::parse_event_t::key && depth == 1)
    return parsed == "profile";
  if (event == json::parse_event_t::key && depth == 2)
    return parsed == "last_active_profiles" || parsed == "last_used" || parsed == "info_cache";
  return event != json::parse_event_t::key || depth <= 3;
}

// What the browser has noted about its profiles.
json notedProfiles(const path& userData) {
  const std::string text = DesktopSupport::fileContents(userData / "Local State", maximumStateSize).value_or("");
  return field(json::parse(text, isWanted, /*allow_exceptions=*/false), "profile");
}

bool isFolderName(const std::string& name) {
  return !name.empty() && name != "." && name != ".." && name.find_first_of(std::string("/\0", 2)) == std::string::npos;
}

void add(std::vector<std::string>& names, const json& name) {
  const auto* text = name.get_ptr<const std::string*>();
  if (text != nullptr && isFolderName(*text) && std::ranges::find(names, *text) == names.end() &&
      names.size() < maximumProfiles)
    names.push_back(*text);
}

std::vector<std::string> openProfileNames(const path& userData) {
  const json profile = notedProfiles(userData);
  const json& lastUsed = field(profile, "last_used");
  std::vector<std::string> names;
  if (const json& list = field(profile, "last_active_profiles"); list.is_array())
    for (const json& name : list)
      add(names, name);
  if (names.empty())
    add(names, lastUsed);
  if (names.empty())
    names.emplace_back("Default");
  const auto front = std::ranges::find_if(names, [&](const std::string& name) { return lastUsed == name; });
  if (front != names.end())
    std::rotate(names.begin(), front, std::next(front));
  return names;
}

bool isFolder(const path& file) {
  std::error_code error;
  return std::filesystem::is_directory(file, error);
}

// Enough for some ten thousand tabs with their histories.
constexpr std::size_t maximumLogSize = 128 << 20;

// The browser begins a new log and removes the oldest one every few hundred changes, hardly during two attempts.
constexpr int attempts = 4;

// The session in the log; `nullopt` if the browser is still writing what was open when it began the log.
std::expected<std::optional<LoggedSession>, std::string> sessionIn(const path& file) {
  const auto bytes = DesktopSupport::fileContents(file, maximumLogSize);
  if (!bytes)
    return std::unexpected(file.string() + " cannot be read, or is too large.");
  const auto log = SessionLog::open(*bytes);
  if (!log)
    return std::unexpected(file.string() + ": " + log.error());
  return log->isComplete() ? std::optional(chromiumSession(*log)) : std::nullopt;
}

Session newestSession(const std::vector<SessionFile>& files, const path& profile) {
  for (const SessionFile& file : files) {
    auto session = sessionIn(file.path);
    if (!session)
      return std::unexpected(std::move(session.error()));
    if (std::optional<LoggedSession>& complete = *session)
      return std::move(*complete);
  }
  if (files.empty())
    return std::unexpected("The session of the profile " + profile.string() +
                           " is unknown: the browser has not written a session log since it was started.");
  return std::unexpected(files.front().path.string() + " is not complete, and neither is an older session log.");
}

// The logs in the folder that the run may have written; all logs if there is no run.
std::vector<SessionFile> logsOf(const std::optional<ChromiumRun>& run, const path& folder) {
  auto files = sessionFiles(folder);
  if (run)
    std::erase_if(files, [&](const SessionFile& file) { return !run->mayHaveWritten(file); });
  return files;
}

}  // namespace

std::vector<path> openChromiumProfiles(const path& userData) {
  std::vector<path> profiles;
  for (const std::string& name : openProfileNames(userData))
    if (isFolder(userData / name))
      profiles.push_back(userData / name);
  if (profiles.empty() && isFolder(userData))
    profiles.push_back(userData);
  return profiles;
}

std::size_t numberOfChromiumProfiles(const path& userData) {
  return std::max<std::size_t>(field(notedProfiles(userData), "info_cache").size(), 1);
}

Session chromiumProfileSession(const path& profile, const std::optional<ChromiumRun>& run) {
  const path folder = profile / "Sessions";
  Session session;
  // The browser begins the readable log first.
  const auto encrypted = logsOf(run, profile / "Sessions_Encrypted");
  auto files = logsOf(run, folder);
  for (int attempt = 0; attempt < attempts; ++attempt) {
    if (areStale(files, encrypted))
      return std::unexpected("The browser keeps the session in " + profile.string() + " encrypted.");
    session = newestSession(files, profile);
    auto later = logsOf(run, folder);
    if (session || later == files)
      break;
    files = std::move(later);
  }
  return session;
}

std::vector<std::int32_t> chromiumApplicationWindows(const path& profile) {
  return newestSession(sessionFiles(profile / "Sessions", "Apps_"), profile).value_or(LoggedSession()).otherWindows;
}

}  // namespace BrowserSessions

// Makes, of the profile of a Chromium that has been used, the session log and the history of one with any number of
// tabs: windows and tabs are copied under numbers of their own, with "#1", "#2", … behind the addresses. The log is
// like one of the browser's own: what was open when it was begun, with all titles, then the mark, then the latest
// changes, which have no titles yet; those are the last copy's.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <vector>

#include <glib.h>

#include "Benchmarks/PageHistory.h"
#include "Benchmarks/SessionRecord.h"
#include "BrowserSessions/SessionFiles.h"
#include "Tests/BrowserSessions/SessionLogWriter.h"

namespace {

using Benchmarks::PageHistory;
using Benchmarks::SessionRecord;
using BrowserSessions::SessionLog;
using BrowserSessions::SessionLogWriter;
using std::filesystem::path;

using Titles = std::map<std::string, std::string>;

/// A real log: what is open in the end, and the changes that led there.
struct Session {
  std::vector<SessionRecord> records;
  /// The index of the first record behind the mark.
  std::size_t latest = 0;
  /// In the order in which they were opened.
  std::vector<std::int32_t> tabs;
  /// More than the distance between any two numbers of windows and tabs.
  std::int32_t span = 0;
};

std::string readAll(const path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<std::int32_t> openTabs(const std::vector<SessionRecord>& records) {
  std::vector<std::int32_t> tabs;
  for (const SessionRecord& record : records) {
    const auto tab = record.tab();
    if (tab && record.isClosing())
      std::erase(tabs, *tab);
    else if (tab && record.isPage() && std::ranges::find(tabs, *tab) == tabs.end())
      tabs.push_back(*tab);
  }
  return tabs;
}

std::int32_t spanOf(const std::vector<SessionRecord>& records) {
  std::set<std::int32_t> numbers;
  for (const SessionRecord& record : records)
    for (const auto number : {record.window(), record.tab()})
      if (number)
        numbers.insert(*number);
  return *numbers.rbegin() - *numbers.begin() + 1;
}

Session readSession(const path& file) {
  constexpr std::uint8_t mark = 255;
  const std::string bytes = readAll(file);
  SessionLog log = SessionLog::open(bytes).value();
  Session session;
  while (const auto command = log.next()) {
    if (command->id == mark)
      session.latest = session.records.size();
    if (auto record = SessionRecord::from(*command))
      session.records.push_back(std::move(*record));
  }
  session.tabs = openTabs(session.records);
  session.span = spanOf(session.records);
  return session;
}

std::u16string utf16(const std::string& text) {
  std::u16string units;
  glong count = 0;
  gunichar2* converted = g_utf8_to_utf16(text.c_str(), -1, nullptr, &count, nullptr);
  units.assign(converted, converted + count);
  g_free(converted);
  return units;
}

SessionRecord withTitle(const SessionRecord& page, std::string_view suffix, const Titles& titles) {
  const auto title = titles.find(std::string(pageAddress(page)));
  return pageWith(page, suffix, title != titles.end() ? utf16(title->second) : u"");
}

/// Writes the copy of this number with the first so many tabs; with the mark where it is in the real log, or without it
/// and with all titles.
void writeCopy(SessionLogWriter& log, const Session& session, int number, std::size_t tabs, bool isLast,
               const Titles& titles) {
  const std::set<std::int32_t> kept(session.tabs.begin(), session.tabs.begin() + static_cast<std::ptrdiff_t>(tabs));
  const std::string suffix = number == 0 ? "" : "#" + std::to_string(number);
  for (std::size_t index = 0; index < session.records.size(); ++index) {
    if (isLast && index == session.latest)
      log.marker();
    const SessionRecord& record = session.records[index];
    const auto tab = record.tab();
    if (record.isClosing() || (tab && !kept.contains(*tab)))
      continue;
    SessionRecord copy = record.renumbered(number * session.span);
    if (copy.isPage())
      copy = withTitle(copy, suffix, isLast ? Titles() : titles);
    log.record(copy.id, copy.payload);
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fprintf(stderr, "Usage: %s PROFILE TABS NEW-PROFILE\n", argv[0]);
    return 2;
  }
  const path profile = argv[1];
  const path made = argv[3];
  const path file = BrowserSessions::sessionFiles(profile / "Sessions").at(0).path;
  const Session session = readSession(file);
  const auto tabs = static_cast<std::size_t>(std::atoi(argv[2]));
  const auto copies = std::max<std::size_t>((tabs + session.tabs.size() - 1) / session.tabs.size(), 1);

  std::filesystem::create_directories(made / "Sessions");
  std::filesystem::copy_file(profile / "History", made / "History");
  const Titles titles = PageHistory(made / "History", static_cast<int>(copies) - 1).titles();
  SessionLogWriter log;
  for (std::size_t number = 0; number + 1 < copies; ++number)
    writeCopy(log, session, static_cast<int>(number), session.tabs.size(), false, titles);
  writeCopy(log, session, static_cast<int>(copies) - 1, tabs - (copies - 1) * session.tabs.size(), true, titles);
  std::ofstream(made / "Sessions" / file.filename(), std::ios::binary) << log.bytes();
}

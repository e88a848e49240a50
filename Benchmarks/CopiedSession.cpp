#include "Benchmarks/CopiedSession.h"

#include <algorithm>
#include <optional>
#include <set>

#include <glib.h>

#include "BrowserSessions/Chromium/SessionLog.h"
#include "Tests/BrowserSessions/SessionLogWriter.h"

namespace Benchmarks {

namespace {

using BrowserSessions::SessionLog;
using BrowserSessions::SessionLogWriter;
using Records = std::vector<SessionRecord>;

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

std::u16string utf16(const std::string& text) {
  std::u16string units;
  glong count = 0;
  gunichar2* converted = g_utf8_to_utf16(text.c_str(), -1, nullptr, &count, nullptr);
  units.assign(converted, converted + count);
  g_free(converted);
  return units;
}

SessionRecord withTitle(const SessionRecord& page, std::string_view suffix, const CopiedSession::Titles& titles) {
  const auto title = titles.find(std::string(pageAddress(page)));
  return pageWith(page, suffix, title != titles.end() ? utf16(title->second) : u"");
}

// The suffix that distinguishes a copy of the session from the others.
struct Copy {
  std::set<std::int32_t> tabs;
  std::int32_t offset;
  std::string suffix;
  CopiedSession::Titles titles;
};

void write(SessionLogWriter& log, Records::const_iterator record, Records::const_iterator end, const Copy& copy) {
  for (; record != end; ++record) {
    const auto tab = record->tab();
    if (record->isClosing() || (tab && !copy.tabs.contains(*tab)))
      continue;
    SessionRecord changed = record->renumbered(copy.offset);
    if (changed.isPage())
      changed = withTitle(changed, copy.suffix, copy.titles);
    log.record(changed.id, changed.payload);
  }
}

}  // namespace

CopiedSession::CopiedSession(std::string_view log) {
  constexpr std::uint8_t mark = 255;
  SessionLog commands = SessionLog::open(log).value();
  while (const auto command = commands.next()) {
    if (command->id == mark)
      latest_ = std::ssize(records_);
    if (auto record = SessionRecord::from(*command))
      records_.push_back(std::move(*record));
  }
  tabs_ = openTabs(records_);
  span_ = spanOf(records_);
}

std::size_t CopiedSession::copiesFor(std::size_t tabs) const {
  return std::max<std::size_t>((tabs + tabs_.size() - 1) / tabs_.size(), 1);
}

std::string CopiedSession::log(std::size_t tabs, const Titles& titles) const {
  SessionLogWriter log;
  const std::size_t copies = copiesFor(tabs);
  for (std::size_t number = 0; number < copies; ++number) {
    const bool isLast = number + 1 == copies;
    const auto kept = isLast ? tabs - number * tabs_.size() : tabs_.size();
    const Copy copy{.tabs = std::set(tabs_.begin(), tabs_.begin() + static_cast<std::ptrdiff_t>(kept)),
                    .offset = static_cast<std::int32_t>(number) * span_,
                    .suffix = number == 0 ? "" : "#" + std::to_string(number),
                    .titles = isLast ? Titles() : titles};
    write(log, records_.begin(), records_.begin() + latest_, copy);
    if (isLast)
      log.marker();
    write(log, records_.begin() + latest_, records_.end(), copy);
  }
  return log.bytes();
}

}  // namespace Benchmarks

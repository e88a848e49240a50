#include "Benchmarks/SessionRecord.h"

#include <algorithm>
#include <array>

#include "BrowserSessions/BrowserFiles.h"
#include "BrowserSessions/Chromium/SessionLog.h"
#include "Tests/BrowserSessions/SessionLogWriter.h"

namespace Benchmarks {

namespace {

using BrowserSessions::PickleReader;
using BrowserSessions::PickleWriter;

constexpr std::uint8_t pageId = 6;
constexpr std::uint8_t tabClosedId = 16;
constexpr std::uint8_t windowClosedId = 17;

struct Kind {
  std::uint8_t id = 0;
  std::optional<std::size_t> windowPlace;
  std::optional<std::size_t> tabPlace;
};

constexpr std::optional<std::size_t> none;
constexpr std::size_t behindPickleHeader = 4;

constexpr std::array<Kind, 22> kinds = {{{0, 0, 4},
                                         {2, none, 0},
                                         {pageId, none, behindPickleHeader},
                                         {7, none, 0},
                                         {8, 0, none},
                                         {9, 0, none},
                                         {12, none, 0},
                                         {13, none, behindPickleHeader},
                                         {14, 0, none},
                                         {15, behindPickleHeader, none},
                                         {tabClosedId, none, 0},
                                         {windowClosedId, 0, none},
                                         {19, none, behindPickleHeader},
                                         {20, 0, none},
                                         {21, none, 0},
                                         {23, behindPickleHeader, none},
                                         {24, none, 0},
                                         {25, none, 0},
                                         {31, behindPickleHeader, none},
                                         {32, 0, none},
                                         {33, none, behindPickleHeader},
                                         {34, behindPickleHeader, none}}};

std::optional<std::int32_t> numberAt(const std::string& payload, std::optional<std::size_t> place) {
  if (!place)
    return std::nullopt;
  return BrowserSessions::littleEndian<std::int32_t>(std::string_view(payload).substr(*place));
}

void raise(std::string& payload, std::optional<std::size_t> place, std::int32_t offset) {
  const auto number = numberAt(payload, place);
  if (place && number)
    payload.replace(*place, sizeof(std::int32_t), PickleWriter::littleEndianBytes(*number + offset));
}

struct PageFields {
  std::int32_t tab;
  std::int32_t place;
  std::string_view address;
  std::u16string title;
  /// The bytes of all later fields.
  std::string_view rest;
};

std::u16string unitsOf(std::string_view bytes) {
  std::u16string units;
  for (; !bytes.empty(); bytes.remove_prefix(2))
    units += static_cast<char16_t>(BrowserSessions::littleEndian<std::uint16_t>(bytes));
  return units;
}

std::optional<PageFields> fieldsOf(std::string_view pickle) {
  auto reader = PickleReader::open(pickle);
  const auto tab = reader ? reader->integer() : std::nullopt;
  const auto place = tab ? reader->integer() : std::nullopt;
  const auto address = place ? reader->text() : std::nullopt;
  const auto title = address ? reader->text16() : std::nullopt;
  if (!title)
    return std::nullopt;
  const auto end = static_cast<std::size_t>(title->data() + title->size() - pickle.data());
  return PageFields{*tab, *place, *address, unitsOf(*title), pickle.substr(std::min((end + 3) / 4 * 4, pickle.size()))};
}

}  // namespace

std::optional<SessionRecord> SessionRecord::from(const BrowserSessions::SessionCommand& command) {
  const auto* const kind = std::ranges::find(kinds, command.id, &Kind::id);
  if (kind == kinds.end())
    return std::nullopt;
  return SessionRecord{command.id, std::string(command.payload), kind->windowPlace, kind->tabPlace};
}

std::optional<std::int32_t> SessionRecord::window() const {
  return numberAt(payload, windowPlace);
}

std::optional<std::int32_t> SessionRecord::tab() const {
  return numberAt(payload, tabPlace);
}

bool SessionRecord::isClosing() const {
  return id == tabClosedId || id == windowClosedId;
}

bool SessionRecord::isPage() const {
  return id == pageId;
}

SessionRecord SessionRecord::renumbered(std::int32_t offset) const {
  SessionRecord other = *this;
  raise(other.payload, windowPlace, offset);
  raise(other.payload, tabPlace, offset);
  return other;
}

std::string_view pageAddress(const SessionRecord& page) {
  const auto fields = fieldsOf(page.payload);
  return fields ? fields->address : "";
}

SessionRecord pageWith(const SessionRecord& page, std::string_view suffix, std::u16string_view title) {
  const auto fields = fieldsOf(page.payload);
  if (!fields)
    return page;
  const std::string first = PickleWriter()
                                .integer(fields->tab)
                                .integer(fields->place)
                                .text(std::string(fields->address).append(suffix))
                                .text16(fields->title.empty() ? title : fields->title)
                                .bytes();
  const std::string all = first.substr(behindPickleHeader).append(fields->rest);
  SessionRecord changed = page;
  changed.payload = PickleWriter::littleEndianBytes(static_cast<std::uint32_t>(all.size())) + all;
  return changed;
}

}  // namespace Benchmarks

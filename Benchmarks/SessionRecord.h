#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "BrowserSessions/Chromium/SessionLog.h"

namespace Benchmarks {

/// A record of a Chromium session log that is about a window, a tab or both.
struct SessionRecord {
  std::uint8_t id = 0;
  std::string payload;
  /// Where in the payload the numbers are that windows and tabs are told by.
  std::optional<std::size_t> windowPlace;
  std::optional<std::size_t> tabPlace;

  /// None where the record is about neither.
  static std::optional<SessionRecord> from(const BrowserSessions::SessionCommand& command);

  [[nodiscard]] std::optional<std::int32_t> window() const;
  [[nodiscard]] std::optional<std::int32_t> tab() const;
  [[nodiscard]] bool isClosing() const;
  [[nodiscard]] bool isPage() const;

  /// The same for the window and the tab whose numbers are higher by this much.
  [[nodiscard]] SessionRecord renumbered(std::int32_t offset) const;
};

/// The address in the record of a page.
std::string_view pageAddress(const SessionRecord& page);

/// The record of a page with `suffix` behind its address, and with this title where it has none.
SessionRecord pageWith(const SessionRecord& page, std::string_view suffix, std::u16string_view title);

}  // namespace Benchmarks

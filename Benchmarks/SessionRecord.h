#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "BrowserSessions/Chromium/SessionLog.h"

namespace Benchmarks {

/// A record of a Chromium session log.
struct SessionRecord {
  std::uint8_t id = 0;
  std::string payload;
  /// Where the payload has the number of a window and of a tab.
  std::optional<std::size_t> windowPlace;
  std::optional<std::size_t> tabPlace;

  /// `nullopt` if the record concerns neither a window nor a tab.
  static std::optional<SessionRecord> from(const BrowserSessions::SessionCommand& command);

  [[nodiscard]] std::optional<std::int32_t> window() const;
  [[nodiscard]] std::optional<std::int32_t> tab() const;
  [[nodiscard]] bool isClosing() const;
  [[nodiscard]] bool isPage() const;

  /// The same record for the window and tab whose numbers are higher by this much.
  [[nodiscard]] SessionRecord renumbered(std::int32_t offset) const;
};

/// The address in the record of a page.
std::string_view pageAddress(const SessionRecord& page);

/// The record of a page with `suffix` after its address, and with this title if it has none.
SessionRecord pageWith(const SessionRecord& page, std::string_view suffix, std::u16string_view title);

}  // namespace Benchmarks

#pragma once

#include <expected>
#include <optional>
#include <string>
#include <string_view>

#include "Platform/Text/URL.h"
#include "UpdateCheck/AppcastItem.h"
#include "UpdateCheck/Fetcher.h"
#include "UpdateCheck/UpdateSettings.h"

namespace UpdateCheck {

/// A plug-in's feed, and what follows from it for the version at hand.
class UpdateFeed {
 public:
  /// What the feed itself may be, and what an update.
  static constexpr FetchLimits feedLimits = {.bytes = 1UL << 20, .total = std::chrono::seconds(30)};
  static constexpr FetchLimits updateLimits = {.bytes = 256UL << 20, .total = std::chrono::minutes(10)};

  /// `kernelRelease` is that of the running kernel, as uname has it.
  UpdateFeed(UpdateSettings settings, std::string kernelRelease);

  /// Loads the feed's text. Fails with a clause for the log.
  [[nodiscard]] std::expected<std::string, std::string> load() const;

  /// The newest update in the text of the feed, if there is one after the version at hand. Fails with a clause for the
  /// log if the text is no appcast.
  [[nodiscard]] std::expected<std::optional<AppcastItem>, std::string> newerItem(std::string_view feed) const;

  /// Where the settings have a key, loads what the item offers and verifies its signature; without one, does nothing.
  /// Fails with a clause for the log.
  [[nodiscard]] std::expected<void, std::string> verify(const AppcastItem& item) const;

  /// The page about the update; none where the item has none, or one that the feed may not send the user to.
  [[nodiscard]] std::optional<Platform::URL> link(const AppcastItem& item) const;

 private:
  [[nodiscard]] std::optional<Platform::URL> permittedURL(const std::string& text) const;
  [[nodiscard]] std::expected<void, std::string> verifyWith(const std::string& key, const AppcastItem& item) const;

  UpdateSettings settings_;
  std::string kernelRelease_;
  Fetcher fetcher_;
};

}  // namespace UpdateCheck

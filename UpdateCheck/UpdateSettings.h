#pragma once

#include <chrono>
#include <expected>
#include <optional>
#include <string>
#include <string_view>

#include "Platform/Text/URL.h"

namespace UpdateCheck {

/// What a plug-in's bundle says about itself and its updates, in `Info.ini`:
///
///     [Bundle]
///     Identifier=com.example.Plugin
///     Name=Plugin                     (default: the identifier)
///     Version=1.0
///
///     [Updates]
///     FeedURL=https://example.com/appcast.xml
///     Interval=86400                  (in seconds; default: a day)
///     PublicKey=<base64>              (default: the feed needs no signature)
///
/// The group's key AutomaticChecks is read by LinuxUpdater, which starts the check.
struct UpdateSettings {
  std::string identifier;
  std::string name;
  std::string version;
  Platform::URL feed;
  /// The time between two checks. At least an hour for a feed on a server; a feed on disk is read as often as the file
  /// says.
  std::chrono::seconds interval;
  /// The Ed25519 key that signs the feed, in base64, as it is in the file.
  std::optional<std::string> publicKey;

  /// Reads the text of an `Info.ini`. Null if the bundle has no feed. Fails with a clause for the log if the feed is
  /// neither https: nor file:, if the interval is not a number, or if the bundle has no version or no identifier of
  /// letters, digits, '.', '-' and '_'.
  static std::expected<std::optional<UpdateSettings>, std::string> parse(std::string_view information);

  /// "Name/Version", in characters that are allowed in a User-Agent header.
  [[nodiscard]] std::string userAgent() const;
};

}  // namespace UpdateCheck

#pragma once

#include <chrono>
#include <expected>
#include <optional>
#include <string>
#include <string_view>

#include "Platform/Text/URL.h"

namespace UpdateCheck {

/// What a plug-in's bundle says about itself and its updates, in its `Info.ini`:
///
///     [Bundle]
///     Identifier=com.example.Plugin
///     Name=Plugin                     (missing: the identifier)
///     Version=1.0
///
///     [Updates]
///     FeedURL=https://example.com/appcast.xml
///     AutomaticChecks=true            (missing: true)
///     Interval=86400                  (seconds; missing: a day)
///     PublicKey=<base64>              (missing: updates are announced unverified)
struct UpdateSettings {
  std::string identifier;
  std::string name;
  std::string version;
  Platform::URL feed;
  /// The time from one check to the next. Servers are asked once an hour at most, whatever the file says; a feed on
  /// disk as often as it says.
  std::chrono::seconds interval;
  /// The Ed25519 key that signs the updates, in base64, as written.
  std::optional<std::string> publicKey;

  /// Reads the text of an `Info.ini`. None where the bundle has no feed or doesn't want to be checked. Fails with a
  /// clause for the log over a feed that is neither https: nor file:, a value that is none, and a bundle without a
  /// version or an identifier of letters, digits, '.', '-' and '_'.
  static std::expected<std::optional<UpdateSettings>, std::string> parse(std::string_view information);

  /// Whether the feed may send the user or this program to the URL: by https always, by file: where the feed is a file
  /// itself.
  [[nodiscard]] bool permits(const Platform::URL& url) const;

  /// "Name/Version", in the characters that may stand in a User-Agent header.
  [[nodiscard]] std::string userAgent() const;
};

}  // namespace UpdateCheck

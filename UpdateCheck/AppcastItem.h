#pragma once

#include <optional>
#include <string>

namespace UpdateCheck {

/// The file that an item of an appcast offers.
struct Enclosure {
  std::string url;
  /// The versions, where the feed gives them here rather than in the item.
  std::optional<std::string> version;
  std::optional<std::string> shortVersion;
  /// The file's Ed25519 signature in base64 (sparkle:edSignature).
  std::optional<std::string> signature;
  /// The one system that the file is for (sparkle:os): "linux", "macos", "windows". None: for every system.
  std::optional<std::string> operatingSystem;

  [[nodiscard]] bool isForThisSystem() const { return operatingSystem.value_or("linux") == "linux"; }
};

/// One update that an appcast offers, with its texts as the feed has them.
struct AppcastItem {
  /// The version that is compared (sparkle:version).
  std::optional<std::string> version;
  /// The version that people are shown (sparkle:shortVersionString).
  std::optional<std::string> shortVersion;
  /// sparkle:minimumSystemVersion
  std::optional<std::string> minimumSystemVersion;
  /// The group of users that have to ask for the item (sparkle:channel). None: it is for everyone.
  std::optional<std::string> channel;
  /// The web page about the update.
  std::optional<std::string> link;
  std::optional<Enclosure> enclosure;
};

}  // namespace UpdateCheck

#pragma once

#include <cstddef>
#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Platform/Text/URL.h"

namespace UpdateCheck {

/// The file that an item of an appcast offers. It is not downloaded here.
struct Enclosure {
  /// The versions, if the feed gives them here and not in the item.
  std::optional<std::string> version;
  std::optional<std::string> shortVersion;
  /// The one system that the file is for (sparkle:os): "linux", "macos", "windows". Null: for every system.
  std::optional<std::string> operatingSystem;

  [[nodiscard]] bool isForThisSystem() const { return operatingSystem.value_or("linux") == "linux"; }
};

/// One update in an appcast, with its texts as they are in the feed.
struct AppcastItem {
  /// The version to compare (sparkle:version).
  std::optional<std::string> version;
  /// The version to show (sparkle:shortVersionString).
  std::optional<std::string> shortVersion;
  /// sparkle:minimumSystemVersion
  std::optional<std::string> minimumSystemVersion;
  /// The group of users who have to ask for the item (sparkle:channel). Null: it is for everyone.
  std::optional<std::string> channel;
  /// The address of the web page about the update.
  std::optional<std::string> link;
  std::optional<Enclosure> enclosure;

  /// The link, or null if there is none or it is not an https: URL.
  [[nodiscard]] std::optional<Platform::URL> page() const;
};

/// A feed of updates: RSS 2.0 with elements and attributes of the namespace
/// http://www.andymatuschak.org/xml-namespaces/sparkle. Everything else in it is ignored.
class Appcast {
 public:
  /// A longer text, in bytes, counts as missing.
  static constexpr std::size_t maximumText = 4096;

  /// Reads the bytes of a feed. Fails with a clause for the log if they are not well-formed XML, declare entities, are
  /// nested too deeply, or have no RSS channel.
  static std::expected<Appcast, std::string> parse(std::string_view bytes);

  /// The item with the newest version, the first of several equivalent ones. Null if no version is newer than the given
  /// one. Ignores items that have no sparkle:version, are for another system or for a channel, or are for Linux and
  /// need a later kernel than `kernelRelease` ("6.1.0-13-amd64", of which the leading numbers count). The minimum of an
  /// item that names no system is a version of macOS, and is ignored.
  [[nodiscard]] std::optional<AppcastItem> newestAfter(std::string_view version, std::string_view kernelRelease) const;

  /// All items, in the feed's order. A version in the item itself has precedence over one in its enclosure. Of several
  /// enclosures, the first for this system counts, else the last.
  [[nodiscard]] const std::vector<AppcastItem>& items() const { return items_; }

 private:
  explicit Appcast(std::vector<AppcastItem> items) : items_(std::move(items)) {}

  std::vector<AppcastItem> items_;
};

}  // namespace UpdateCheck

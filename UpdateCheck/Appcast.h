#pragma once

#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "UpdateCheck/AppcastItem.h"

namespace UpdateCheck {

/// A feed of updates: RSS 2.0 with the elements that the updaters of macOS applications read.
class Appcast {
 public:
  /// Reads the bytes of a feed. Fails with a clause for the log where they are not well-formed XML, declare entities,
  /// are nested too deeply, or have no RSS channel.
  static std::expected<Appcast, std::string> parse(std::string_view bytes);

  /// The item with the newest version, if that is newer than the given one; the first of several equivalent ones. Items
  /// without a sparkle:version, for another system or for a channel don't count. Nor do those that say that they are
  /// for Linux and ask for a later kernel than `kernelRelease` ("6.1.0-13-amd64", of which the leading numbers count).
  /// In an item that doesn't name its system, the minimum is one of macOS and means nothing here.
  [[nodiscard]] std::optional<AppcastItem> newestAfter(std::string_view version, std::string_view kernelRelease) const;

  [[nodiscard]] const std::vector<AppcastItem>& items() const { return items_; }

 private:
  explicit Appcast(std::vector<AppcastItem> items) : items_(std::move(items)) {}

  std::vector<AppcastItem> items_;
};

}  // namespace UpdateCheck

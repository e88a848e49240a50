#include "UpdateCheck/UpdateSettings.h"

#include <algorithm>
#include <cstdint>

#include <glib.h>

#include "DesktopSupport/System/DisplayableText.h"
#include "DesktopSupport/System/KeyFileGroup.h"
#include "DesktopSupport/System/Text.h"
#include "Platform/Text/UTF8.h"

namespace UpdateCheck {

namespace {

using DesktopSupport::KeyFileGroup;
using Platform::URL;

constexpr std::chrono::seconds usualInterval = std::chrono::days(1);
constexpr std::chrono::seconds shortestInterval = std::chrono::hours(1);

/// Whether the text can be part of a file's name.
bool isIdentifier(std::string_view text) {
  const auto isAllowed = [](char character) {
    return g_ascii_isalnum(character) || std::string_view(".-_").contains(character);
  };
  return !text.empty() && text.front() != '.' && std::ranges::all_of(text, isAllowed);
}

bool hasScheme(const URL& url, std::string_view scheme) {
  return DesktopSupport::lowerCase(url.scheme().value_or("")) == scheme;
}

std::optional<std::string> nonEmptyText(const KeyFileGroup& group, std::string_view key) {
  auto text = group.text(key);
  return text && !text->empty() ? text : std::nullopt;
}

std::expected<std::chrono::seconds, std::string> parseInterval(const KeyFileGroup& updates, const URL& feed) {
  const auto text = updates.text("Interval");
  if (!text)
    return usualInterval;
  const auto seconds = DesktopSupport::parseNumber<std::uint32_t>(*text);
  if (!seconds)
    return std::unexpected("Interval is not a number of seconds");
  const std::chrono::seconds interval(*seconds);
  return hasScheme(feed, "file") ? interval : std::max(interval, shortestInterval);
}

std::expected<URL, std::string> parseFeed(const std::string& text) {
  auto feed = URL::parse(text);
  if (!feed || (!hasScheme(*feed, "https") && !hasScheme(*feed, "file")))
    return std::unexpected("FeedURL is neither an https: nor a file: URL");
  return *std::move(feed);
}

}  // namespace

std::expected<std::optional<UpdateSettings>, std::string> UpdateSettings::parse(std::string_view information) {
  // Otherwise a key whose value is not UTF-8 would count as missing.
  if (!Platform::stringFromUTF8(std::string(information)))
    return std::unexpected("Info.ini is not UTF-8");
  const auto updates = KeyFileGroup::parse(information, "Updates");
  const auto feedText = updates ? nonEmptyText(*updates, "FeedURL") : std::nullopt;
  if (!feedText)
    return std::nullopt;
  const auto feed = parseFeed(*feedText);
  if (!feed)
    return std::unexpected(feed.error());
  const auto interval = parseInterval(*updates, *feed);
  if (!interval)
    return std::unexpected(interval.error());
  const auto bundle = KeyFileGroup::parse(information, "Bundle");
  const auto identifier = bundle ? nonEmptyText(*bundle, "Identifier") : std::nullopt;
  if (!identifier || !isIdentifier(*identifier))
    return std::unexpected("the bundle has no valid identifier");
  const auto version = nonEmptyText(*bundle, "Version");
  if (!version)
    return std::unexpected("the bundle has no version");
  return UpdateSettings{.identifier = *identifier,
                        .name = nonEmptyText(*bundle, "Name").value_or(*identifier),
                        .version = *version,
                        .feed = *feed,
                        .interval = *interval,
                        .publicKey = updates->text("PublicKey")};
}

std::string UpdateSettings::userAgent() const {
  std::string text = name + '/' + version;
  std::ranges::replace_if(
      text,
      [](char character) { return !g_ascii_isalnum(character) && !std::string_view("/.-_+").contains(character); },
      '-');
  return text;
}

}  // namespace UpdateCheck

#include "UpdateCheck/UpdateFeed.h"

#include <utility>

#include "UpdateCheck/Appcast.h"
#include "UpdateCheck/PublicKey.h"
#include "UpdateCheck/ScratchFile.h"

namespace UpdateCheck {

namespace {

using Platform::URL;

std::unexpected<std::string> failure(const char* subject, const std::string& reason) {
  return std::unexpected(subject + (": " + reason));
}

}  // namespace

UpdateFeed::UpdateFeed(UpdateSettings settings, std::string kernelRelease)
    : settings_(std::move(settings)), kernelRelease_(std::move(kernelRelease)), fetcher_(settings_.userAgent()) {}

std::expected<std::string, std::string> UpdateFeed::load() const {
  auto feed = fetcher_.fetch(settings_.feed, feedLimits);
  if (!feed)
    return failure("the feed cannot be loaded", feed.error());
  return feed;
}

std::expected<std::optional<AppcastItem>, std::string> UpdateFeed::newerItem(std::string_view feed) const {
  const auto appcast = Appcast::parse(feed);
  if (!appcast)
    return failure("the feed cannot be read", appcast.error());
  return appcast->newestAfter(settings_.version, kernelRelease_);
}

std::expected<void, std::string> UpdateFeed::verify(const AppcastItem& item) const {
  if (!settings_.publicKey)
    return {};
  const auto verified = verifyWith(*settings_.publicKey, item);
  if (!verified)
    return failure("the update cannot be verified", verified.error());
  return {};
}

std::expected<void, std::string> UpdateFeed::verifyWith(const std::string& key, const AppcastItem& item) const {
  const auto publicKey = PublicKey::parse(key);
  if (!publicKey)
    return std::unexpected(publicKey.error());
  if (!item.enclosure || !item.enclosure->signature)
    return std::unexpected("it has no signature");
  const auto url = permittedURL(item.enclosure->url);
  if (!url)
    return std::unexpected("it is not at an https: URL");
  auto file = ScratchFile::create();
  if (!file)
    return std::unexpected(file.error());
  if (const auto fetched =
          fetcher_.fetch(*url, updateLimits, [&](std::string_view piece) { return file->append(piece); });
      !fetched)
    return std::unexpected(fetched.error());
  const auto contents = file->contents();
  if (!contents)
    return std::unexpected(contents.error());
  return publicKey->verify(contents->bytes(), *item.enclosure->signature);
}

std::optional<URL> UpdateFeed::link(const AppcastItem& item) const {
  return item.link ? permittedURL(*item.link) : std::nullopt;
}

std::optional<URL> UpdateFeed::permittedURL(const std::string& text) const {
  auto url = URL::parse(text);
  return url && settings_.permits(*url) ? url : std::nullopt;
}

}  // namespace UpdateCheck

#include "UpdateCheck/UpdateFeed.h"

#include <cstddef>
#include <optional>

#include <sodium.h>

namespace UpdateCheck {

namespace {

/// The bytes, if there are exactly `size` of them. Characters in `ignored` are skipped.
template <std::size_t size>
std::optional<std::array<unsigned char, size>> decoded(std::string_view base64, const char* ignored) {
  std::array<unsigned char, size> bytes = {};
  std::size_t count = 0;
  if (sodium_base642bin(bytes.data(), size, base64.data(), base64.size(), ignored, &count, nullptr,
                        sodium_base64_VARIANT_ORIGINAL) != 0 ||
      count != size)
    return std::nullopt;
  return bytes;
}

std::unexpected<std::string> failure(const char* subject, const std::string& reason) {
  return std::unexpected(subject + (": " + reason));
}

/// Loads the signature beside the feed, and verifies the feed's text with it.
std::expected<void, std::string> verify(const std::string& feed, const PublicKey& key, const UpdateSettings& settings) {
  const auto url = Platform::URL::parse(settings.feed.absoluteString() + ".sig");
  if (!url)
    return std::unexpected("its signature has no URL");
  const auto signature = fetch(*url, signatureLimits, settings.userAgent());
  if (!signature)
    return failure("its signature cannot be loaded", signature.error());
  return key.verify(feed, *signature);
}

}  // namespace

std::expected<PublicKey, std::string> PublicKey::parse(std::string_view base64) {
  static_assert(std::tuple_size_v<Bytes> == crypto_sign_PUBLICKEYBYTES);
  if (sodium_init() < 0)
    return std::unexpected("libsodium does not start");
  const auto bytes = decoded<crypto_sign_PUBLICKEYBYTES>(base64, nullptr);
  if (!bytes)
    return std::unexpected("PublicKey is not a key of 32 bytes in base64");
  return PublicKey(*bytes);
}

std::expected<void, std::string> PublicKey::verify(std::string_view bytes, std::string_view signature) const {
  const auto signatureBytes = decoded<crypto_sign_BYTES>(signature, "\r\n");
  if (!signatureBytes)
    return std::unexpected("its signature is not one of 64 bytes in base64");
  if (crypto_sign_verify_detached(signatureBytes->data(), reinterpret_cast<const unsigned char*>(bytes.data()),
                                  bytes.size(), bytes_.data()) != 0)
    return std::unexpected("its signature does not match");
  return {};
}

std::expected<std::string, std::string> loadFeed(const UpdateSettings& settings) {
  constexpr const char* unverified = "the feed cannot be verified";
  std::optional<PublicKey> key;
  if (settings.publicKey) {
    const auto parsed = PublicKey::parse(*settings.publicKey);
    if (!parsed)
      return failure(unverified, parsed.error());
    key = *parsed;
  }
  auto feed = fetch(settings.feed, feedLimits, settings.userAgent());
  if (!feed)
    return failure("the feed cannot be loaded", feed.error());
  if (!key)
    return feed;
  if (const auto verified = verify(*feed, *key, settings); !verified)
    return failure(unverified, verified.error());
  return feed;
}

}  // namespace UpdateCheck

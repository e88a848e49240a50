#pragma once

#include <array>
#include <expected>
#include <string>
#include <string_view>

#include "UpdateCheck/Fetch.h"
#include "UpdateCheck/UpdateSettings.h"

namespace UpdateCheck {

/// The Ed25519 key that verifies a publisher's signatures.
class PublicKey {
 public:
  /// Reads a key of 32 bytes in base64. Fails with a clause for the log if the text is anything else.
  static std::expected<PublicKey, std::string> parse(std::string_view base64);

  /// Verifies that `signature`, 64 bytes in base64, with or without line breaks, is the key's owner's for these bytes.
  /// Fails with a clause for the log if it is not, or is not a signature at all.
  [[nodiscard]] std::expected<void, std::string> verify(std::string_view bytes, std::string_view signature) const;

 private:
  using Bytes = std::array<unsigned char, 32>;

  explicit PublicKey(const Bytes& bytes) : bytes_(bytes) {}

  Bytes bytes_;
};

inline constexpr FetchLimits feedLimits = {.bytes = 1UL << 20, .total = std::chrono::seconds(30)};
inline constexpr FetchLimits signatureLimits = {.bytes = 1024, .total = std::chrono::seconds(30)};

/// Loads the text of the feed. If the settings have a public key, the text is verified with it: its signature is in a
/// file beside the feed, whose URL is the feed's with ".sig" at its end. Fails with a clause for the log.
std::expected<std::string, std::string> loadFeed(const UpdateSettings& settings);

}  // namespace UpdateCheck

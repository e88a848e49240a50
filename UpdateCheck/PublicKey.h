#pragma once

#include <array>
#include <expected>
#include <span>
#include <string>
#include <string_view>

namespace UpdateCheck {

/// The Ed25519 key that a publisher's signatures are verified with.
class PublicKey {
 public:
  /// The key in base64, 32 bytes. Fails with a clause for the log over any other text.
  static std::expected<PublicKey, std::string> parse(std::string_view base64);

  /// Whether `signature`, 64 bytes in base64, is one of these bytes by the key's owner. Fails with a clause for the log
  /// where it isn't, or is none.
  [[nodiscard]] std::expected<void, std::string> verify(std::span<const unsigned char> bytes,
                                                        std::string_view signature) const;

 private:
  using Bytes = std::array<unsigned char, 32>;

  explicit PublicKey(const Bytes& bytes) : bytes_(bytes) {}

  Bytes bytes_;
};

}  // namespace UpdateCheck

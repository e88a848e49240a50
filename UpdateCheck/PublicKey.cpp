#include "UpdateCheck/PublicKey.h"

#include <cstddef>
#include <optional>

#include <sodium.h>

namespace UpdateCheck {

namespace {

/// The bytes, if there are exactly so many.
template <std::size_t size>
std::optional<std::array<unsigned char, size>> decoded(std::string_view base64) {
  std::array<unsigned char, size> bytes = {};
  std::size_t count = 0;
  if (sodium_base642bin(bytes.data(), size, base64.data(), base64.size(), nullptr, &count, nullptr,
                        sodium_base64_VARIANT_ORIGINAL) != 0 ||
      count != size)
    return std::nullopt;
  return bytes;
}

}  // namespace

std::expected<PublicKey, std::string> PublicKey::parse(std::string_view base64) {
  static_assert(std::tuple_size_v<Bytes> == crypto_sign_PUBLICKEYBYTES);
  if (sodium_init() < 0)
    return std::unexpected("signatures cannot be verified");
  const auto bytes = decoded<crypto_sign_PUBLICKEYBYTES>(base64);
  if (!bytes)
    return std::unexpected("PublicKey is not a key of 32 bytes in base64");
  return PublicKey(*bytes);
}

std::expected<void, std::string> PublicKey::verify(std::span<const unsigned char> bytes,
                                                   std::string_view signature) const {
  const auto signatureBytes = decoded<crypto_sign_BYTES>(signature);
  if (!signatureBytes)
    return std::unexpected("its signature is not one of 64 bytes in base64");
  if (crypto_sign_verify_detached(signatureBytes->data(), bytes.data(), bytes.size(), bytes_.data()) != 0)
    return std::unexpected("its signature does not match");
  return {};
}

}  // namespace UpdateCheck

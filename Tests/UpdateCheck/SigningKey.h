#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include <sodium.h>

/// A publisher's key, always the same one.
class SigningKey {
 public:
  SigningKey() {
    const std::array<unsigned char, crypto_sign_SEEDBYTES> seed = {7};
    crypto_sign_seed_keypair(public_.data(), secret_.data(), seed.data());
  }

  /// In base64, like the signatures.
  [[nodiscard]] std::string publicKey() const { return base64(public_); }

  [[nodiscard]] std::string sign(std::string_view contents) const {
    std::array<unsigned char, crypto_sign_BYTES> signature = {};
    crypto_sign_detached(signature.data(), nullptr, reinterpret_cast<const unsigned char*>(contents.data()),
                         contents.size(), secret_.data());
    return base64(signature);
  }

 private:
  template <std::size_t size>
  static std::string base64(const std::array<unsigned char, size>& bytes) {
    std::array<char, sodium_base64_ENCODED_LEN(size, sodium_base64_VARIANT_ORIGINAL)> text = {};
    return sodium_bin2base64(text.data(), text.size(), bytes.data(), size, sodium_base64_VARIANT_ORIGINAL);
  }

  std::array<unsigned char, crypto_sign_PUBLICKEYBYTES> public_ = {};
  std::array<unsigned char, crypto_sign_SECRETKEYBYTES> secret_ = {};
};

#pragma once

#include <expected>
#include <string>

#include "Platform/Text/URL.h"
#include "UpdateCheck/ByteSink.h"
#include "UpdateCheck/FetchLimits.h"

namespace UpdateCheck {

/// Loads what a URL names: a file on disk (file:), or one from the web (https:).
///
/// On the web, the server has to prove its identity to the certificate authorities that the system trusts, or to those
/// in the file that SSL_CERT_FILE names. At most five redirects are followed, to https: alone, and a
/// proxy that the environment names is used. Nothing is kept: no cookies, no cache.
class Fetcher {
 public:
  /// `userAgent` is what servers are told of the program.
  explicit Fetcher(std::string userAgent) : userAgent_(std::move(userAgent)) {}

  /// Hands the bytes to the sink. Fails with a clause for the log over every other scheme, anything on disk that isn't
  /// a regular file, an answer of the server that isn't a success, and whatever exceeds the limits; the sink may have
  /// got a beginning then.
  [[nodiscard]] std::expected<void, std::string> fetch(const Platform::URL& url, const FetchLimits& limits,
                                                       const ByteSink& sink) const;

  /// The bytes as a text.
  [[nodiscard]] std::expected<std::string, std::string> fetch(const Platform::URL& url,
                                                              const FetchLimits& limits) const;

 private:
  std::string userAgent_;
};

}  // namespace UpdateCheck

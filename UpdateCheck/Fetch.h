#pragma once

#include <chrono>
#include <cstddef>
#include <expected>
#include <string>

#include "Platform/Text/URL.h"

namespace UpdateCheck {

/// How much a server may send, and how long it may take.
struct FetchLimits {
  std::size_t bytes;
  /// The timeout of the whole transfer, and that of making the connection. They don't apply to files on disk.
  std::chrono::milliseconds total;
  std::chrono::milliseconds connecting = std::chrono::seconds(10);
};

/// The bytes at a URL: of a file on this machine (file:), or of one on the web (https:).
///
/// On the web, the server must have a certificate from an authority that the system trusts, or that is in the file
/// named by SSL_CERT_FILE. `userAgent` is all that it learns about the program. At most five redirects are followed,
/// only to https: URLs; a proxy named by the environment is used. No cookies and no cache are kept.
///
/// Fails with a clause for the log if the URL has another scheme, if the file on disk is not a regular one, if the
/// server's answer is not a success, or if a limit is exceeded.
std::expected<std::string, std::string> fetch(const Platform::URL& url, const FetchLimits& limits,
                                              const std::string& userAgent);

}  // namespace UpdateCheck

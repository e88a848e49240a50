#pragma once

#include <cstddef>
#include <expected>
#include <string>

#include "Platform/Text/URL.h"
#include "UpdateCheck/ByteSink.h"
#include "UpdateCheck/FetchLimits.h"

namespace UpdateCheck {

/// Loads one file by https.
class WebTransfer {
 public:
  /// What is given is used until the end of `run`.
  WebTransfer(const std::string& userAgent, const FetchLimits& limits, const ByteSink& sink)
      : userAgent_(userAgent), limits_(limits), sink_(sink) {}

  /// Loads the file; returns once it is complete. Fails with a clause for the log.
  [[nodiscard]] std::expected<void, std::string> run(const Platform::URL& url) const;

 private:
  static std::size_t received(char* bytes, std::size_t size, std::size_t count, void* sink);

  const std::string& userAgent_;
  const FetchLimits& limits_;
  const ByteSink& sink_;
};

}  // namespace UpdateCheck

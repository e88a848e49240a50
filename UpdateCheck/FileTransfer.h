#pragma once

#include <expected>
#include <string>

#include "Platform/Text/URL.h"
#include "UpdateCheck/ByteSink.h"

namespace UpdateCheck {

/// Reads a regular file of this machine, piece by piece.
class FileTransfer {
 public:
  /// What is given is used until the end of `run`.
  explicit FileTransfer(const ByteSink& sink) : sink_(sink) {}

  /// Reads the file that the file URL names. Fails with a clause for the log.
  [[nodiscard]] std::expected<void, std::string> run(const Platform::URL& url) const;

 private:
  [[nodiscard]] std::expected<void, std::string> readAll(int file) const;

  const ByteSink& sink_;
};

}  // namespace UpdateCheck

#pragma once

#include <string_view>

namespace Platform {

/// The system log (NSLog).
class Log {
 public:
  virtual ~Log() = default;

  /// Writes one message, whole and unchanged. Never fails.
  virtual void write(std::string_view message) = 0;
};

}  // namespace Platform

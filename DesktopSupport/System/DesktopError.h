#pragma once

#include <string>

namespace DesktopSupport {

/// Why the desktop could not be read, as a sentence.
struct DesktopError {
  std::string message;
};

}  // namespace DesktopSupport

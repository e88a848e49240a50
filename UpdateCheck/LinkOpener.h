#pragma once

#include <expected>
#include <string>

#include "Platform/Text/URL.h"

namespace UpdateCheck {

/// Shows a page to the user: one on the web in the browser, a file in the application for its type.
class LinkOpener {
 public:
  /// Hands the URL over, running the main context until it has arrived. Fails with a clause for the log where no
  /// application takes it.
  static std::expected<void, std::string> open(const Platform::URL& url);
};

}  // namespace UpdateCheck

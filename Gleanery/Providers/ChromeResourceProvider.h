#pragma once

#include "Gleanery/Providers/BasicResourceProvider.h"

namespace Gleanery {

/// Google Chrome's tabs.
class ChromeResourceProvider : public BasicResourceProvider {
 public:
  ChromeResourceProvider();

  /// A resource of type website at the URL `location`; never fails. Stops the process if `location` is not a URL.
  [[nodiscard]] std::expected<Resource, Platform::Error> makeResource(std::string_view name,
                                                                      std::string_view location) const override;
};

}  // namespace Gleanery

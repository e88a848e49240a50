#pragma once

#include "Gleanery/Providers/BasicResourceProvider.h"

namespace Gleanery {

/// The applications that are not in the background, as System Events lists them.
class OpenAppsResourceProvider : public BasicResourceProvider {
 public:
  OpenAppsResourceProvider();

  /// A resource of type application at the file URL of the path `location`; never fails.
  [[nodiscard]] std::expected<Resource, Platform::Error> makeResource(std::string_view name,
                                                                      std::string_view location) const override;
};

}  // namespace Gleanery

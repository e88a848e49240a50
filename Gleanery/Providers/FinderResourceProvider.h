#pragma once

#include "Gleanery/Providers/BasicResourceProvider.h"

namespace Gleanery {

/// The folders that the Finder's windows show.
class FinderResourceProvider : public BasicResourceProvider {
 public:
  FinderResourceProvider();

  /// A resource of type folder at the file URL of the path `location`; never fails.
  [[nodiscard]] std::expected<Resource, Platform::Error> makeResource(std::string_view name,
                                                                      std::string_view location) const override;
};

}  // namespace Gleanery

#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "Gleanery/Providers/ResourceProvider.h"

namespace Gleanery {

/// The providers that this application has: Safari, the open applications, the Finder, Google Chrome, in this order.
class ResourceProviderController {
 public:
  ResourceProviderController();
  ResourceProviderController(const ResourceProviderController&) = delete;
  ResourceProviderController& operator=(const ResourceProviderController&) = delete;
  ~ResourceProviderController() = default;

  [[nodiscard]] const std::vector<std::unique_ptr<ResourceProvider>>& providers() const { return providers_; }

  /// The first provider of this identifier, by exact match; null where there is none.
  [[nodiscard]] const ResourceProvider* provider(std::string_view identifier) const;

 private:
  std::vector<std::unique_ptr<ResourceProvider>> providers_;
};

}  // namespace Gleanery

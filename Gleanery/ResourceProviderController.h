#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "Gleanery/Providers/ResourceProvider.h"

namespace Gleanery {

/// The providers of this application: Safari, the open applications, the Finder and Google Chrome, in this order.
class ResourceProviderController {
 public:
  ResourceProviderController();
  ResourceProviderController(const ResourceProviderController&) = delete;
  ResourceProviderController& operator=(const ResourceProviderController&) = delete;
  ~ResourceProviderController() = default;

  [[nodiscard]] const std::vector<std::unique_ptr<ResourceProvider>>& providers() const { return providers_; }

  /// The first provider with exactly this identifier; null if there is none.
  [[nodiscard]] const ResourceProvider* provider(std::string_view identifier) const;

 private:
  std::vector<std::unique_ptr<ResourceProvider>> providers_;
};

}  // namespace Gleanery

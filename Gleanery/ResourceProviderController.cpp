#include "Gleanery/ResourceProviderController.h"

#include "Gleanery/Providers/ChromeResourceProvider.h"
#include "Gleanery/Providers/FinderResourceProvider.h"
#include "Gleanery/Providers/OpenAppsResourceProvider.h"
#include "Gleanery/Providers/SafariResourceProvider.h"

namespace Gleanery {

ResourceProviderController::ResourceProviderController() {
  providers_.push_back(std::make_unique<SafariResourceProvider>());
  providers_.push_back(std::make_unique<OpenAppsResourceProvider>());
  providers_.push_back(std::make_unique<FinderResourceProvider>());
  providers_.push_back(std::make_unique<ChromeResourceProvider>());
}

const ResourceProvider* ResourceProviderController::provider(std::string_view identifier) const {
  for (const auto& provider : providers_)
    if (provider->identifier() == identifier)
      return provider.get();
  return nullptr;
}

}  // namespace Gleanery

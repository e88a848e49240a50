#include "Gleanery/ResourceProviderController.h"

#include "Gleanery/ChromeResourceProvider.h"
#include "Gleanery/FinderResourceProvider.h"
#include "Gleanery/OpenAppsResourceProvider.h"
#include "Gleanery/SafariResourceProvider.h"

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

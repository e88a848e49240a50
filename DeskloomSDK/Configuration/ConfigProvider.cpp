#include "DeskloomSDK/Configuration/ConfigProvider.h"

#include <utility>
#include <vector>

namespace DeskloomSDK {

void ConfigProvider::keep(std::shared_ptr<const ConfigProvider> provider) {
  // Never destroyed, as what a provider uses may be gone when static objects are.
  static auto* const kept = new std::vector<std::shared_ptr<const ConfigProvider>>;
  kept->push_back(std::move(provider));
}

}  // namespace DeskloomSDK

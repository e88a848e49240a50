#include "Gleanery/RunCommandActionController.h"

#include <expected>
#include <utility>
#include <vector>

#include "DeskloomSDK/Resources/Command.h"
#include "Gleanery/Providers/ResourceFilter.h"
#include "Gleanery/ResourceProviderController.h"
#include "Platform/Services.h"

namespace Gleanery {

namespace {

std::expected<std::vector<Resource>, Platform::Error> resources(std::string_view identifier) {
  const ResourceProviderController controller;
  const ResourceProvider* provider = controller.provider(identifier);
  if (provider == nullptr)
    return std::vector<Resource>();
  return provider->fetchResources();
}

std::expected<void, Platform::Error> sendResources(std::string_view identifier) {
  auto gathered = resources(identifier);
  if (!gathered)
    return std::unexpected(std::move(gathered.error()));
  return DeskloomSDK::Command(allowedResources(std::move(*gathered))).send();
}

}  // namespace

void RunCommandActionController::run(const std::optional<std::string>& data) const {
  if (data) {
    const auto sent = sendResources(*data);
    if (!sent)
      Platform::services().alerts.runModal(Platform::Alert::withError(sent.error()));
  }
  Platform::sharedApplication().terminate();
}

}  // namespace Gleanery

#include "Gleanery/Providers/BasicResourceProvider.h"

#include <cstddef>
#include <utility>

#include "BrimlaceTextView/Lines.h"
#include "Gleanery/Providers/AppleScriptRunner.h"
#include "Platform/Error.h"

namespace Gleanery {

BasicResourceProvider::BasicResourceProvider(std::string identifier, std::string script)
    : identifier_(std::move(identifier)), script_(std::move(script)) {}

std::expected<std::vector<Resource>, Platform::Error> BasicResourceProvider::fetchResources() const {
  const std::string reply = AppleScriptRunner().run(script());
  const auto lines = BrimlaceTextView::lines(reply);

  std::vector<Resource> resources;
  resources.reserve(lines.size() / 2);
  for (std::size_t i = 0; i + 1 < lines.size(); i += 2) {
    auto resource = makeResource(lines[i], lines[i + 1]);
    if (!resource)
      return std::unexpected(std::move(resource.error()));
    resources.push_back(std::move(*resource));
  }
  return resources;
}

Resource BasicResourceProvider::tabResource(std::string_view name, std::string_view location) {
  auto url = Platform::URL::parse(std::string(location));
  if (!url)
    Platform::fatalError("Unexpectedly found no URL in a tab's address.");
  return {DeskloomSDK::ResourceType::website, std::string(name), std::move(*url)};
}

}  // namespace Gleanery

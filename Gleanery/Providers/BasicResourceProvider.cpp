#include "Gleanery/Providers/BasicResourceProvider.h"

#include <cstddef>
#include <utility>

#include "BrimlaceTextView/Lines.h"
#include "Gleanery/Providers/AppleScriptRunner.h"

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

}  // namespace Gleanery

#include "DeskloomSDK/Resources/Command.h"

#include <utility>

#include "DeskloomSDK/Host/SDKError.h"
#include "Platform/Services.h"
#include "Platform/Text/PercentEncoding.h"
#include "Platform/Text/URL.h"

namespace DeskloomSDK {

namespace {

constexpr const char* addResourcesName = "gleanery";

std::optional<std::string> payload(const std::vector<Resource>& resources) {
  const auto text = encodeResources(resources);
  if (!text)
    return std::nullopt;
  return Platform::percentEncodedPath(*text);
}

std::string hostURL(const std::string& name, std::optional<std::string> data) {
  std::string beginning = "deskloom://" + name;
  if (!data)
    return beginning;
  return std::move(data->insert(0, beginning + "/"));
}

}  // namespace

Command::Command(const std::vector<Resource>& resources) : Command(addResourcesName, payload(resources)) {}

Command::Command(std::string name, std::optional<std::string> data) : name_(std::move(name)), data_(std::move(data)) {}

std::expected<void, Platform::Error> Command::send() const& {
  return Command(*this).send();
}

std::expected<void, Platform::Error> Command::send() && {
  auto url = Platform::URL::parse(hostURL(name_, std::move(data_)));
  if (!url) {
    const auto& strings = Platform::services().strings;
    return std::unexpected(
        makeError(ErrorCode::couldNotCreateURL, strings.localized("Could not create URL", "Error"), ""));
  }
  Platform::services().workspace.open(std::move(*url));
  return {};
}

}  // namespace DeskloomSDK

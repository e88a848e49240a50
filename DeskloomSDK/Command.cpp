#include "DeskloomSDK/Command.h"

#include <utility>

#include "DeskloomSDK/SDKError.h"
#include "Platform/PercentEncoding.h"
#include "Platform/Services.h"
#include "Platform/URL.h"

namespace DeskloomSDK {

namespace {

constexpr const char* addResourcesName = "gleanery";

std::optional<std::string> payload(const std::vector<Resource>& resources) {
  const auto text = encodeResources(resources);
  if (!text)
    return std::nullopt;
  return Platform::percentEncodedPath(*text);
}

std::string hostURL(const std::string& name, const std::optional<std::string>& data) {
  std::string text = "deskloom://" + name;
  if (data)
    text.append("/").append(*data);
  return text;
}

}  // namespace

Command::Command(const std::vector<Resource>& resources) : Command(addResourcesName, payload(resources)) {}

Command::Command(std::string name, std::optional<std::string> data) : name_(std::move(name)), data_(std::move(data)) {}

std::expected<void, Platform::Error> Command::send() const {
  const auto url = Platform::URL::parse(hostURL(name_, data_));
  if (!url) {
    const auto& strings = Platform::services().strings;
    return std::unexpected(
        makeError(ErrorCode::couldNotCreateURL, strings.localized("Could not create URL", "Error"), ""));
  }
  Platform::services().workspace.open(*url);
  return {};
}

}  // namespace DeskloomSDK

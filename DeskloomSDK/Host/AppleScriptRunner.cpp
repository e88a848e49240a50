#include "DeskloomSDK/Host/AppleScriptRunner.h"

#include "DeskloomSDK/Host/SDKError.h"
#include "Platform/Services.h"

namespace DeskloomSDK {

std::expected<std::optional<std::string>, Platform::Error> AppleScriptRunner::run(std::string_view source) {
  const auto outcome = Platform::services().scripts.run(source);
  if (!outcome)
    return std::nullopt;
  if (outcome->error)
    return std::unexpected(makeScriptError());
  if (!outcome->result)
    return std::nullopt;
  return outcome->result->stringValue;
}

}  // namespace DeskloomSDK

#include "DeskloomSDK/Host/SDKError.h"

#include <utility>

#include "Platform/Services.h"

namespace DeskloomSDK {

Platform::Error makeError(int code, std::string description, std::string failureReason) {
  return {errorDomain, code, std::move(description), std::move(failureReason)};
}

Platform::Error makeScriptError() {
  Platform::Strings& strings = Platform::services().strings;
  return makeError(ErrorCode::couldNotRunScript, strings.localized("Could not run script", "Error"),
                   strings.localized("It looks like you haven't got Deskloom 2 app or you didn't allow to communicate "
                                     "the plugin (this app) via Apple Script",
                                     "No Deskloom 2 or disallowed."));
}

}  // namespace DeskloomSDK

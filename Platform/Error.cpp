#include "Platform/Error.h"

#include <utility>

namespace Platform {

Error::Error(std::string domain, int code, std::string localizedDescription, std::string localizedFailureReason)
    : domain_(std::move(domain)),
      code_(code),
      userInfo_{{localizedDescriptionKey, std::move(localizedDescription)},
                {localizedFailureReasonKey, std::move(localizedFailureReason)}} {}

}  // namespace Platform

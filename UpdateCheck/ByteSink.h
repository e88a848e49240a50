#pragma once

#include <functional>
#include <string_view>

namespace UpdateCheck {

/// Takes the bytes of a file piece by piece; false where they can't be kept, which ends the transfer.
using ByteSink = std::function<bool(std::string_view piece)>;

}  // namespace UpdateCheck

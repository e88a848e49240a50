#pragma once

#include <string_view>

namespace HostStandIn {

/// Whether the text is a URL of the scheme deskloom (written in any case) without control characters, and so one line,
/// and without characters that change the direction of writing. So it can be printed unaltered. Nothing else is asked
/// of it: a host for development shows what it is sent.
bool isHostURL(std::string_view text);

}  // namespace HostStandIn

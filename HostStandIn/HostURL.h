#pragma once

#include <expected>
#include <string>
#include <string_view>

namespace HostStandIn {

/// Whether the text is a deskloom URL (the scheme in any case) that can be printed unchanged: without control
/// characters, hence one line, and without characters that change the direction of writing. It need not be valid
/// otherwise, since a host for development shows whatever it is sent.
bool isHostURL(std::string_view text);

/// The resources that a deskloom:// URL carries, one a line, with type, name and URL in columns; "(no resources)" if
/// there are none. Names are made printable. Fails with a phrase for the user if the URL does not add resources, or if
/// its payload is not a list of resources.
std::expected<std::string, std::string> resourceTable(std::string_view url);

}  // namespace HostStandIn

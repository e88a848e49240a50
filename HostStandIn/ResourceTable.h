#pragma once

#include <expected>
#include <string>
#include <string_view>

namespace HostStandIn {

/// The resources that a deskloom:// URL carries, a line each: type, name, URL, in columns; "(no resources)" for an
/// empty list. Names are made printable, so each resource is one line. Fails with a sentence where the URL is not one
/// that adds resources or its payload is no list of them.
std::expected<std::string, std::string> resourceTable(std::string_view url);

}  // namespace HostStandIn

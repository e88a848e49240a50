#pragma once

#include <string>
#include <string_view>

namespace ScriptableApps {

/// The address of a tab in the form of RFC 3986, given what the browser has. Browsers leave a few things bare that may
/// not be (spaces, bars, braces, non-ASCII letters, a '%' that escapes nothing): these are percent-encoded, byte by
/// byte, and nothing else is changed, except that an international host name is written in its ASCII form (xn--…) if it
/// has one. A tab without an address is at "about:blank".
std::string tabAddress(std::string_view address);

}  // namespace ScriptableApps

#pragma once

#include <string>
#include <string_view>

namespace ScriptableApps {

/// A tab's address as a URI as in RFC 3986, made from the address that the browser has. Browsers don't encode some
/// characters that a URI must not contain (spaces, bars, braces, non-ASCII letters, a '%' that escapes nothing): these
/// are percent-encoded byte by byte. An international host name is written in its ASCII form (xn--…) if it has one.
/// Nothing else is changed. An empty address becomes "about:blank".
std::string tabAddress(std::string_view address);

}  // namespace ScriptableApps

#pragma once

#include <cstddef>

#include "BrowserSessions/BrowserSession.h"

namespace BrowserSessions {

/// The length of the longest address that is listed, in bytes.
inline constexpr std::size_t longestAddress = 64 << 10;

/// Leaves out the tabs whose addresses are longer than `longestAddress`, and the windows that have no other tab. If
/// there are any, their number is a further problem.
void leaveOutLongAddresses(SessionReading& reading);

}  // namespace BrowserSessions

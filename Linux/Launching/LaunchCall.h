#pragma once

#include <vector>

#include <gio/gio.h>

#include "Linux/Launching/Launch.h"

namespace Linux {

/// How long a launch that came by the bus waits for the main thread: one that is busy for longer may be so for minutes.
inline constexpr std::chrono::milliseconds longestWait{500};

/// The launches that a call of org.freedesktop.Application asks for, one for each URL, and one without a URL for
/// Activate and ActivateAction. Takes the invocation over, and answers it once all of them have been seen to.
std::vector<Launch> launchesOf(GDBusMethodInvocation* invocation, Launch::Clock::time_point now = Launch::Clock::now());

/// What a process adds to the arguments of a call, as platform data, that does the launch itself unless it hears in
/// time that it is in good hands: until when the launch has to begin. Floating; of type a{sv}.
GVariant* dataWithDeadline(Launch::Clock::time_point beginBy);

}  // namespace Linux

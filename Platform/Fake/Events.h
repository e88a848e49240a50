#pragma once

#include <string>
#include <utility>
#include <vector>

namespace Platform::Fake {

/// What happened on a desktop of fakes, in one order across its services. Each event is one line of text:
///
/// | line                   | what happened                            |
/// |------------------------|------------------------------------------|
/// | `script <source>`      | a script was run                         |
/// | `open <URL>`           | a URL was opened                         |
/// | `alert <message text>` | an alert was shown                       |
/// | `no alert <text>`      | one was asked for while terminating      |
/// | `log <message>`        | a message was logged                     |
/// | `check for updates`    | a check for updates was begun            |
/// | `terminate`            | the application was asked to terminate   |
/// | `post <name>`          | the application posted this notification |
using Events = std::vector<std::string>;

/// Adds an event, unless `events` is null.
inline void note(Events* events, std::string event) {
  if (events != nullptr)
    events->push_back(std::move(event));
}

}  // namespace Platform::Fake

#pragma once

#include <string_view>

namespace DesktopSupport {

/// Writes a line to the journal, or to syslog if there is no journal, and to standard error unless that is the journal.
/// The message is made `printable`, so it is one line and cannot control a terminal.
void writeToSystemLog(std::string_view message);

/// The same for a message of several lines, each of which is made `printable`. Texts from outside must be put into it
/// as one line each.
void writeLinesToSystemLog(std::string_view message);

}  // namespace DesktopSupport

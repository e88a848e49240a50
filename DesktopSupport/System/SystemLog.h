#pragma once

#include <string_view>

namespace DesktopSupport {

/// Writes a line to the journal, else to syslog, and to standard error unless that is the journal itself. The message
/// is made `printable`, so it is one line and does nothing to a terminal.
void writeToSystemLog(std::string_view message);

/// The same for a message of several lines, each of which is made `printable`. Texts of others in it are one line.
void writeLinesToSystemLog(std::string_view message);

}  // namespace DesktopSupport

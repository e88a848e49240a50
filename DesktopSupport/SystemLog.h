#pragma once

#include <string_view>

namespace DesktopSupport {

/// Writes a line to the journal, else to syslog, and to standard error unless that is the journal itself.
void writeToSystemLog(std::string_view message);

}  // namespace DesktopSupport

#include "DesktopSupport/System/SystemLog.h"

#include <array>
#include <cstdio>
#include <string>

#include <glib.h>
#include <sys/types.h>
#include <syslog.h>
#include <unistd.h>

#include "DesktopSupport/System/DisplayableText.h"

namespace DesktopSupport {

namespace {

bool writeToJournal(std::string_view message) {
  const std::array<GLogField, 3> fields = {{
      {"MESSAGE", message.data(), static_cast<gssize>(message.size())},
      {"PRIORITY", "5", -1},
      {"SYSLOG_IDENTIFIER", program_invocation_short_name, -1},
  }};
  return g_log_writer_journald(G_LOG_LEVEL_MESSAGE, fields.data(), fields.size(), nullptr) == G_LOG_WRITER_HANDLED;
}

void write(const std::string& message) {
  if (!writeToJournal(message))
    syslog(LOG_USER | LOG_NOTICE, "%s", message.c_str());
  if (!g_log_writer_is_journald(STDERR_FILENO))
    std::fprintf(stderr, "%s\n", message.c_str());
}

}  // namespace

void writeToSystemLog(std::string_view message) {
  write(printable(message));
}

void writeLinesToSystemLog(std::string_view message) {
  write(printableLines(message));
}

}  // namespace DesktopSupport

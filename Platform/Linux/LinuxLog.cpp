#include "Platform/Linux/LinuxLog.h"

#include "DesktopSupport/SystemLog.h"

namespace Platform::Linux {

void LinuxLog::write(std::string_view message) {
  DesktopSupport::writeLinesToSystemLog(message);
}

}  // namespace Platform::Linux

#include "Platform/Linux/LinuxLog.h"

#include "DesktopSupport/SystemLog.h"

namespace Platform::Linux {

void LinuxLog::write(std::string_view message) {
  DesktopSupport::writeToSystemLog(message);
}

}  // namespace Platform::Linux

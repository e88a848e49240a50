#include "Linux/LinuxLog.h"

#include "DesktopSupport/System/SystemLog.h"

namespace Platform::Linux {

void LinuxLog::write(std::string_view message) {
  DesktopSupport::writeLinesToSystemLog(message);
}

}  // namespace Platform::Linux

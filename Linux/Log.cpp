#include "Linux/Log.h"

#include "DesktopSupport/System/SystemLog.h"

namespace Linux {

void Log::write(std::string_view message) {
  DesktopSupport::writeLinesToSystemLog(message);
}

}  // namespace Linux

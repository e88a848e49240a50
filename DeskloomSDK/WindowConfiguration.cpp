#include "DeskloomSDK/WindowConfiguration.h"

namespace DeskloomSDK {

void WindowConfiguration::configure(Platform::Window& window) {
  window.setLevel(Platform::floatingWindowLevel + 1);
}

}  // namespace DeskloomSDK

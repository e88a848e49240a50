#include "OpenWindows.h"

#include "DeskloomSDK/WindowConfiguration.h"
#include "Platform/Services.h"

namespace RecentFiles {

void OpenWindows::show(Platform::Window& window) {
  windows_.insert(&window);
  window.setDelegate(this);
  DeskloomSDK::WindowConfiguration::configure(window);
  window.makeKeyAndOrderFront();
}

void OpenWindows::terminateIfNone() const {
  if (windows_.empty())
    Platform::sharedApplication().terminate();
}

void OpenWindows::windowWillClose(const Platform::Notification& notification) {
  windows_.erase(notification.object);
  terminateIfNone();
}

}  // namespace RecentFiles

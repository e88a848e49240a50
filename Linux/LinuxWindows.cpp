#include "Linux/LinuxWindows.h"

namespace Platform::Linux {

std::unique_ptr<Window> LinuxWindows::makeWindow(const WindowContent& content) {
  const auto toolkit = module_.toolkit();
  if (toolkit)
    return (*toolkit)->makeWindow(content);
  log_.write("the window \"" + content.title + "\" could not be shown: " + toolkit.error());
  return nullptr;
}

}  // namespace Platform::Linux

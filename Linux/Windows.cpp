#include "Linux/Windows.h"

namespace Linux {

std::unique_ptr<Platform::Window> Windows::makeWindow(const Platform::WindowContent& content) {
  const auto toolkit = module_.toolkit();
  if (toolkit)
    return (*toolkit)->makeWindow(content);
  log_.write("the window \"" + content.title + "\" could not be shown: " + toolkit.error());
  return nullptr;
}

}  // namespace Linux

#pragma once

#include "Linux/WindowModule.h"
#include "Platform/Log.h"
#include "Platform/Windows.h"

namespace Platform::Linux {

/// Makes windows with the window module's toolkit.
class LinuxWindows : public Windows {
 public:
  LinuxWindows(WindowModule& module, Log& log) : module_(module), log_(log) {}

  std::unique_ptr<Window> makeWindow(const WindowContent& content) override;

 private:
  WindowModule& module_;
  Log& log_;
};

}  // namespace Platform::Linux

#pragma once

#include "Linux/WindowModule.h"
#include "Platform/Log.h"
#include "Platform/Windows.h"

namespace Linux {

/// Makes windows with the window module's toolkit.
class Windows : public Platform::Windows {
 public:
  Windows(WindowModule& module, Platform::Log& log) : module_(module), log_(log) {}

  std::unique_ptr<Platform::Window> makeWindow(const Platform::WindowContent& content) override;

 private:
  WindowModule& module_;
  Platform::Log& log_;
};

}  // namespace Linux

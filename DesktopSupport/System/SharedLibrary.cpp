#include "DesktopSupport/System/SharedLibrary.h"

#include <dlfcn.h>

namespace DesktopSupport {

SharedLibrary::SharedLibrary(std::string name)
    : name_(std::move(name)), library_(dlopen(name_.c_str(), RTLD_NOW | RTLD_LOCAL)) {
  if (library_ == nullptr)
    problem_ = name_ + " is not installed or cannot be loaded.";
}

void* SharedLibrary::address(const char* name) {
  if (library_ == nullptr)
    return nullptr;
  void* const found = dlsym(library_, name);
  if (found == nullptr)
    problem_ = name_ + " has no function " + name + '.';
  return found;
}

}  // namespace DesktopSupport

#include "Linux/WindowModule.h"

#include <dlfcn.h>

namespace Linux {

namespace {

constexpr const char* fileName = "deskloom-windows.so";

std::unexpected<std::string> loadingProblem() {
  const char* reason = dlerror();
  return std::unexpected("the window module cannot be loaded: " + std::string(reason == nullptr ? "" : reason));
}

}  // namespace

std::expected<WindowToolkit*, std::string> WindowModule::toolkit() {
  if (!toolkit_)
    toolkit_ = load();
  if (!*toolkit_)
    return std::unexpected(toolkit_->error());
  return toolkit_->value().get();
}

WindowModule::Toolkit WindowModule::load() const {
  void* module = dlopen((bundle_.path() / fileName).c_str(), RTLD_NOW | RTLD_LOCAL);
  if (module == nullptr)
    return loadingProblem();
  void* symbol = dlsym(module, openWindowToolkitSymbol);
  if (symbol == nullptr)
    return loadingProblem();

  auto* open = reinterpret_cast<OpenWindowToolkit*>(symbol);
  const auto icon = bundle_.information("Icon");
  std::unique_ptr<WindowToolkit> toolkit(open({.applicationIdentifier = bundle_.identifier().value_or(""),
                                               .applicationName = bundle_.information("Name").value_or(""),
                                               .icon = icon ? bundle_.path() / *icon : ""}));
  if (toolkit == nullptr)
    return std::unexpected("no display can be opened");
  return toolkit;
}

}  // namespace Linux

#include "Linux/Windows.h"

#include <utility>

#include <dlfcn.h>
#include <glib.h>

#include "DesktopSupport/System/DisplayableText.h"

namespace Linux {

namespace {

constexpr const char* moduleName = "deskloom-windows.so";

std::unexpected<std::string> loadingProblem() {
  const char* reason = dlerror();
  return std::unexpected("the window module cannot be loaded: " + std::string(reason == nullptr ? "" : reason));
}

}  // namespace

std::unique_ptr<Platform::Window> Windows::makeWindow(const Platform::WindowContent& content) {
  const auto opened = toolkit();
  if (opened)
    return (*opened)->makeWindow(content);
  log_.write("the window \"" + content.title + "\" could not be shown: " + opened.error());
  return nullptr;
}

std::expected<WindowToolkit*, std::string> Windows::toolkit() {
  if (!toolkit_)
    toolkit_ = load();
  if (!*toolkit_)
    return std::unexpected(toolkit_->error());
  return toolkit_->value().get();
}

Windows::LoadedToolkit Windows::load() const {
  void* module = dlopen((bundle_.path() / moduleName).c_str(), RTLD_NOW | RTLD_LOCAL);
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

void Alerts::runModal(const Platform::Alert& alert) {
  // The main context may bring another alert while the user reads the one before.
  if (shown_ != nullptr)
    awaitDismissal(*shown_);
  if (application_.isTerminating())
    return writeToLog(alert, "the application is terminating");
  const auto toolkit = windows_.toolkit();
  if (!toolkit)
    return writeToLog(alert, toolkit.error());

  Platform::Alert complete = alert;
  if (complete.buttons.empty())
    complete.buttons.push_back(strings_.localized("OK", "OK button"));
  const auto panel = (*toolkit)->showAlert(complete);
  const AlertPanel* below = std::exchange(shown_, panel.get());
  awaitDismissal(*panel);
  shown_ = below;
}

void Alerts::awaitDismissal(const AlertPanel& panel) const {
  while (!panel.isDismissed() && !application_.isTerminating())
    g_main_context_iteration(nullptr, /*may_block=*/TRUE);
}

void Alerts::writeToLog(const Platform::Alert& alert, const std::string& reason) {
  // The texts may come from another program, such as the host.
  log_.write(DesktopSupport::printable(alert.messageText));
  if (!alert.informativeText.empty())
    log_.write(DesktopSupport::printable(alert.informativeText));
  log_.write("the alert could not be shown: " + reason);
}

}  // namespace Linux

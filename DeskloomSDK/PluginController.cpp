#include "DeskloomSDK/PluginController.h"

#include "DeskloomSDK/DeskloomPluginURL.h"
#include "Platform/Error.h"
#include "Platform/Text/URL.h"

namespace DeskloomSDK {

namespace {

std::optional<DeskloomPluginURL> launchURL(const Platform::AppleEvent& event) {
  const auto* directObject = event.paramDescriptor(Platform::keyDirectObject);
  if (directObject == nullptr || !directObject->stringValue)
    return std::nullopt;
  const auto url = Platform::URL::parse(*directObject->stringValue);
  return url ? DeskloomPluginURL::parse(*url) : std::nullopt;
}

}  // namespace

PluginController::PluginController()
    : onRun([](const std::string&) { Platform::fatalError("Run action not implemented yet."); }),
      onEdit([](const std::string&) { Platform::fatalError("Edit action not implemented yet."); }),
      onConfigure([] { Platform::fatalError("Edit Global Configuration action not implemented yet."); }),
      onRunCommand([](const std::optional<std::string>&) {
        Platform::fatalError("Edit Global Configuration action not implemented yet.");
      }) {}

bool PluginController::handleURLEvent(const Platform::AppleEvent& event) {
  const auto url = launchURL(event);
  if (!url)
    return false;
  if (url->action() == "edit")
    return perform(onEdit, url->actionID);
  if (url->action() == "run")
    return perform(onRun, url->actionID);
  if (url->action() == "configure") {
    onConfigure();
    return performed();
  }
  if (url->action() == "runCommand") {
    onRunCommand(url->actionID);
    return performed();
  }
  return false;
}

bool PluginController::perform(const ActionHandler& handler, const std::optional<std::string>& actionID) {
  if (!actionID) {
    didPerformAction = false;
    return false;
  }
  handler(*actionID);
  return performed();
}

bool PluginController::performed() {
  didPerformAction = true;
  return true;
}

}  // namespace DeskloomSDK

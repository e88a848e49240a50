#pragma once

#include <functional>
#include <optional>
#include <string>

#include "Platform/AppleEvent.h"

namespace DeskloomSDK {

/// Turns the host's launch URLs into calls of the plug-in's action handlers, and remembers whether an action was
/// performed. A plug-in sets the handlers of the actions that it offers; the others stop the process with a fatal
/// error.
class PluginController {
 public:
  /// Does something with the action of this identifier.
  using ActionHandler = std::function<void(const std::string& actionID)>;
  /// Does something with the plug-in as a whole.
  using ConfigureHandler = std::function<void()>;
  /// Does something with the command of this identifier, which the host need not give.
  using RunCommandHandler = std::function<void(const std::optional<std::string>& actionID)>;

  /// Has no handlers yet: each of the four actions stops the process.
  PluginController();

  /// Runs the action of this identifier.
  ActionHandler onRun;
  /// Lets the user edit the action of this identifier.
  ActionHandler onEdit;
  /// Lets the user configure the plug-in as a whole.
  ConfigureHandler onConfigure;
  /// Runs one of the plug-in's commands, named by the identifier where the host gives one.
  RunCommandHandler onRunCommand;

  /// Whether a handler has been called for a launch URL and has returned. A "run" or "edit" without an identifier
  /// clears it.
  bool didPerformAction = false;

  /// Handles a URL event: calls the handler of its launch URL's action, synchronously, and yields true; false where the
  /// event carries no launch URL of a known action, which is ignored in silence.
  bool handleURLEvent(const Platform::AppleEvent& event);

 private:
  bool perform(const ActionHandler& handler, const std::optional<std::string>& actionID);
  bool performed();
};

}  // namespace DeskloomSDK

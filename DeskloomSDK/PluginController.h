#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "Platform/AppleEvents.h"

namespace DeskloomSDK {

/// What a plug-in does when the host asks for an action: a callback, or what is done if there is none. The callback may
/// set the handler anew while it runs, and may replace its controller; it lives until it has returned. Copies share the
/// callback.
template <typename... Arguments>
class Handler {
 public:
  /// What a plug-in sets: a lambda, a function, or `nullptr` for no callback.
  using Callback = std::function<void(Arguments...)>;

  /// A handler without a callback: calling it calls `whenUnset`.
  explicit Handler(void (*whenUnset)(Arguments...)) : whenUnset_(whenUnset) {}
  /// A handler with the other's callback and what that does without one.
  Handler(const Handler&) = default;
  ~Handler() = default;

  /// Sets the callback and releases the one before it.
  Handler& operator=(Callback callback) {
    callback_ = std::make_shared<const Callback>(std::move(callback));
    return *this;
  }
  /// Takes the other's callback. Without a callback, each handler still does what it was made with.
  Handler& operator=(const Handler& other) {
    if (this != &other)
      callback_ = other.callback_;
    return *this;
  }

  /// Calls the callback.
  void operator()(Arguments... arguments) const {
    const auto running = callback_;
    if (running && *running)
      (*running)(arguments...);
    else
      whenUnset_(arguments...);
  }

 private:
  std::shared_ptr<const Callback> callback_;
  void (*whenUnset_)(Arguments...);
};

/// Turns the host's launch URLs into calls of the plug-in's action handlers, and remembers whether an action was
/// performed. A plug-in sets the handlers of the actions that it offers; the others stop the process with a fatal
/// error. A controller is not copied, but another one can be moved into its place.
class PluginController {
 public:
  /// Does something with the action of this identifier.
  using ActionHandler = Handler<const std::string&>;
  /// Does something with the plug-in as a whole.
  using ConfigureHandler = Handler<>;
  /// Does something with the command of this identifier, which the host need not give.
  using RunCommandHandler = Handler<const std::optional<std::string>&>;

  /// Has no handlers yet: each of the four actions stops the process.
  PluginController();
  PluginController(const PluginController&) = delete;
  PluginController& operator=(const PluginController&) = delete;
  /// Takes the handlers and `didPerformAction`.
  PluginController(PluginController&&) = default;
  /// Takes the handlers and `didPerformAction`. A handler may do this to its own controller.
  PluginController& operator=(PluginController&&) = default;
  ~PluginController() = default;

  /// Runs the action of this identifier.
  ActionHandler onRun;
  /// Lets the user edit the action of this identifier.
  ActionHandler onEdit;
  /// Lets the user configure the plug-in as a whole.
  ConfigureHandler onConfigure;
  /// Runs one of the plug-in's commands, named by the identifier where the host gives one.
  RunCommandHandler onRunCommand;

  /// Whether a handler has been called for a launch URL and has returned. A "run" or "edit" without an identifier
  /// clears it. If a handler has another controller moved into the place of its own, the action counts for that one.
  bool didPerformAction = false;

  /// Handles a URL event: calls the handler of its launch URL's action, synchronously, and yields true; false where the
  /// event carries no launch URL of a known action, which is ignored in silence.
  bool handleURLEvent(const Platform::AppleEvent& event);

 private:
  bool perform(const ActionHandler& handler, const std::optional<std::string>& actionID);
  bool performed();
};

}  // namespace DeskloomSDK

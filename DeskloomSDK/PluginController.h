#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "Platform/AppleEvents.h"

namespace DeskloomSDK {

/// What a plug-in does when the host asks for an action: calls the callback that the plug-in has set, or a function if
/// it has set none. While the callback runs, it may replace itself and even its controller; it lives until it returns.
/// Copies share the callback.
template <typename... Arguments>
class Handler {
 public:
  /// A lambda, a function, or `nullptr` for no callback.
  using Callback = std::function<void(Arguments...)>;

  /// A handler without a callback, which calls `whenUnset`.
  explicit Handler(void (*whenUnset)(Arguments...)) : whenUnset_(whenUnset) {}
  /// A handler with the callback and the `whenUnset` of the other.
  Handler(const Handler&) = default;
  ~Handler() = default;

  /// Sets the callback and releases the one before it.
  Handler& operator=(Callback callback) {
    callback_ = std::make_shared<const Callback>(std::move(callback));
    return *this;
  }
  /// Takes the other's callback and keeps its own `whenUnset`.
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
/// error. A controller cannot be copied, but another one can be moved into its place.
class PluginController {
 public:
  /// Called with the identifier of an action.
  using ActionHandler = Handler<const std::string&>;
  /// Called without arguments.
  using ConfigureHandler = Handler<>;
  /// Called with the identifier of a command, or `nullopt` if the host gives none.
  using RunCommandHandler = Handler<const std::optional<std::string>&>;

  /// A controller without callbacks: each of the four actions stops the process.
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
  /// Runs one of the plug-in's commands.
  RunCommandHandler onRunCommand;

  /// Whether a handler has been called for a launch URL and has returned. A "run" or "edit" without an identifier
  /// clears it. If a handler moves another controller into the place of its own, the other one's flag is set.
  bool didPerformAction = false;

  /// Calls the handler of the action in the event's launch URL, and yields true after the handler has returned. Yields
  /// false, and logs nothing, if the event has no launch URL or no handler is called for it.
  bool handleURLEvent(const Platform::AppleEvent& event);

 private:
  bool perform(const ActionHandler& handler, const std::optional<std::string>& actionID);
  bool performed();
};

}  // namespace DeskloomSDK

#pragma once

#include <expected>
#include <functional>
#include <memory>
#include <utility>

#include "DesktopSupport/Bus/SessionBus.h"
#include "HostStandIn/ExportedInterface.h"
#include "HostStandIn/ScriptingCommands.h"

namespace HostStandIn {

/// The host's com.quillary.Deskloom.Scripting on the bus: what plug-ins ask of it by script.
class ScriptingInterface {
 public:
  /// Lets `commands`, which must outlive it, answer. `installed` is called when a plug-in was installed. An
  /// installation that is refused fails with com.quillary.Deskloom.Error.InstallationRefused.
  static std::expected<ScriptingInterface, DesktopSupport::BusError> create(const DesktopSupport::SessionBus& bus,
                                                                            ScriptingCommands& commands,
                                                                            std::move_only_function<void()> installed);

 private:
  explicit ScriptingInterface(std::unique_ptr<ExportedInterface> exported) : exported_(std::move(exported)) {}

  std::unique_ptr<ExportedInterface> exported_;
};

}  // namespace HostStandIn

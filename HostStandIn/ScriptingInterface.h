#pragma once

#include <functional>

#include "DesktopSupport/Bus/SessionBus.h"
#include "HostStandIn/ExportedInterface.h"
#include "HostStandIn/ScriptingCommands.h"

namespace HostStandIn {

/// The host's com.quillary.Deskloom.Scripting interface on the bus, through which scripts send it commands.
class ScriptingInterface {
 public:
  /// Calls are answered by `commands`, which must outlive this object. `installed` is called after a plug-in was
  /// installed. A refused installation fails with com.quillary.Deskloom.Error.InstallationRefused.
  ScriptingInterface(const DesktopSupport::SessionBus& bus, ScriptingCommands& commands,
                     std::move_only_function<void()> installed);

 private:
  ExportedInterface exported_;
};

}  // namespace HostStandIn

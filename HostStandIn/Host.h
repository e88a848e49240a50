#pragma once

#include <cstddef>
#include <expected>
#include <memory>
#include <optional>
#include <string>

#include "DesktopSupport/System/GLibHandles.h"
#include "HostStandIn/ApplicationInterface.h"
#include "HostStandIn/BusName.h"
#include "HostStandIn/Options.h"
#include "HostStandIn/Output.h"
#include "HostStandIn/ScriptingCommands.h"
#include "HostStandIn/ScriptingInterface.h"

namespace HostStandIn {

/// The host, which has the name com.quillary.Deskloom on the session bus while it exists.
class Host {
 public:
  /// Puts the host on the bus, ready for calls. Fails with a phrase for the user if there is no session bus, another
  /// host is running, or the log cannot be opened.
  static std::expected<std::unique_ptr<Host>, std::string> create(const Options& options);

  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;
  ~Host();

  /// Serves until it has received as many URLs as the options say. Fails if the bus closes the connection first.
  std::expected<void, std::string> run();

 private:
  Host(const Options& options, DesktopSupport::SessionBus bus);
  std::expected<void, std::string> openLog(const Options& options);
  std::expected<void, DesktopSupport::BusError> serve();
  void receive(const std::string& url);

  Output output_;
  ScriptingCommands commands_;
  std::size_t received_ = 0;
  std::size_t enough_;
  DesktopSupport::MainLoopHandle loop_;
  DesktopSupport::SessionBus bus_;
  bool isBusGone_ = false;
  std::optional<ApplicationInterface> application_;
  std::optional<ScriptingInterface> scripting_;
  std::optional<BusName> name_;
};

}  // namespace HostStandIn

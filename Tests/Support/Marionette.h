#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>

#include "DesktopSupport/System/GLibHandles.h"

namespace TestSupport {

/// The remote control of a Firefox that was started with --marionette and --remote-allow-system-access. Operations
/// throw where the browser refuses or is gone.
class Marionette {
 public:
  /// Takes control of the browser that listens at this port of this machine.
  explicit Marionette(std::uint16_t port);

  /// Runs the body of a function with the rights of the browser, in the browser's first window, and yields what it
  /// returns; a promise is waited for. Its `arguments` are these.
  nlohmann::json run(const std::string& body, const nlohmann::json& arguments = nlohmann::json::array());

  /// Has the browser quit as its menu does.
  void quit();

 private:
  nlohmann::json command(const std::string& name, const nlohmann::json& parameters);
  void write(const std::string& text);
  nlohmann::json read();

  DesktopSupport::ObjectHandle<GSocketConnection> connection_;
  DesktopSupport::ObjectHandle<GDataInputStream> input_;
  int lastCommand_ = 0;
};

}  // namespace TestSupport

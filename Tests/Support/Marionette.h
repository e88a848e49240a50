#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>

#include "Tests/Support/GIOHandles.h"

namespace TestSupport {

/// The remote control of a Firefox started with --marionette and --remote-allow-system-access. Operations throw if the
/// browser refuses or is gone.
class Marionette {
 public:
  /// Connects to the browser that listens on this port.
  explicit Marionette(std::uint16_t port);

  /// Runs the body of a function with the browser's privileges in its first window, and returns its result. Waits for
  /// it if it is a promise. `arguments` are the function's arguments.
  nlohmann::json run(const std::string& body, const nlohmann::json& arguments = nlohmann::json::array());

  /// Makes the browser quit, as its menu does.
  void quit();

 private:
  nlohmann::json command(const std::string& name, const nlohmann::json& parameters);
  void write(const std::string& text);
  nlohmann::json read();

  ObjectHandle<GSocketConnection> connection_;
  ObjectHandle<GDataInputStream> input_;
  int lastCommand_ = 0;
};

}  // namespace TestSupport

#pragma once

#include <chrono>

#include "AppleScript/Values/Application.h"
#include "ScriptableApps/Deskloom/DeskloomHost.h"

namespace ScriptableApps {

/// "Deskloom": the host application with its commands for plug-ins, reached over D-Bus.
class Deskloom : public AppleScript::Application {
 public:
  /// `patience` is how long a command waits for the host's answer; the default is the language's own timeout.
  explicit Deskloom(std::chrono::milliseconds patience = std::chrono::minutes(2)) : host_(patience) {}

  [[nodiscard]] std::string_view name() const override;
  [[nodiscard]] const AppleScript::Dictionary& dictionary() const override;
  /// The application object, which has a name and no elements. Works whether or not the host is running.
  [[nodiscard]] AppleScript::Result<AppleScript::ObjectPointer> open() override;

  [[nodiscard]] const DeskloomHost& host() const { return host_; }

 private:
  DeskloomHost host_;
};

}  // namespace ScriptableApps

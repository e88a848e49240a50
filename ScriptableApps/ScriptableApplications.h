#pragma once

#include <memory>
#include <vector>

#include "AppleScript/Values/Application.h"

namespace ScriptableApps {

/// The applications that `tell application "…"` reaches on this system. Making them asks and starts no program.
class ScriptableApplications : public AppleScript::ApplicationDirectory {
 public:
  ScriptableApplications();

  [[nodiscard]] AppleScript::Application* find(std::string_view name) override;

 private:
  std::vector<std::unique_ptr<AppleScript::Application>> applications_;
};

}  // namespace ScriptableApps

#pragma once

#include "Platform/ScriptEngine.h"

namespace Platform::Linux {

/// The project's own interpreter, with the applications that can be scripted on this desktop.
class LinuxScriptEngine : public ScriptEngine {
 public:
  std::optional<ScriptOutcome> run(std::string_view source) override;
};

}  // namespace Platform::Linux

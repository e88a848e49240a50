#pragma once

#include "Platform/ScriptEngine.h"

namespace Linux {

/// The project's own interpreter, with the applications that can be scripted on this desktop.
class ScriptEngine : public Platform::ScriptEngine {
 public:
  std::optional<Platform::ScriptOutcome> run(std::string_view source) override;
};

}  // namespace Linux

#include "Platform/ScriptEngine.h"

namespace Platform {

std::string ScriptErrorInformation::description() const {
  std::string text = "{\n";
  if (!applicationName.empty())
    text += "    NSAppleScriptErrorAppName = \"" + applicationName + "\";\n";
  text += "    NSAppleScriptErrorMessage = \"" + message + "\";\n";
  text += "    NSAppleScriptErrorNumber = \"" + std::to_string(number) + "\";\n";
  text += "    NSAppleScriptErrorRange = \"NSRange: {" + std::to_string(rangeStart) + ", " +
          std::to_string(rangeLength) + "}\";\n";
  return text + "}";
}

}  // namespace Platform

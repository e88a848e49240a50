#include "DeskloomSDK/Host/DeskloomAPI.h"

#include <initializer_list>
#include <utility>

#include "DeskloomSDK/Host/AppleScriptRunner.h"
#include "DeskloomSDK/Host/SDKError.h"
#include "Platform/Error.h"
#include "Platform/Services.h"

namespace DeskloomSDK {

namespace {

std::string bundleIdentifier() {
  auto identifier = Platform::services().bundle.identifier();
  if (!identifier)
    Platform::fatalError("The main bundle has no identifier.");
  return std::move(*identifier);
}

/// The script that sends a request. The pieces are inserted unchanged; the caller escapes them if need be.
std::string script(std::initializer_list<std::string_view> pieces) {
  std::string source = "    tell application \"Deskloom\" to ";
  for (const std::string_view piece : pieces)
    source += piece;
  return source;
}

APIResult<void> send(const std::string& source) {
  const auto reply = AppleScriptRunner::run(source);
  if (!reply)
    return std::unexpected(reply.error());
  return {};
}

APIResult<std::string> ask(const std::string& source) {
  auto reply = AppleScriptRunner::run(source);
  if (!reply)
    return std::unexpected(reply.error());
  auto& text = *reply;
  if (!text) {
    const auto description = Platform::services().strings.localized("Could not read data from script output", "Error");
    return std::unexpected(makeError(ErrorCode::couldNotReadScriptOutput, description, ""));
  }
  return std::move(*text);
}

std::string escaping(std::string_view text, char special) {
  std::string escaped;
  escaped.reserve(text.size());
  for (const char character : text) {
    if (character == special)
      escaped += '\\';
    escaped += character;
  }
  return escaped;
}

}  // namespace

APIResult<std::string> DeskloomAPI::getGlobalConfig() const {
  return ask(script({"get global config \"", bundleIdentifier(), "\""}));
}

APIResult<void> DeskloomAPI::setGlobalConfig(std::string_view value) const {
  const std::string identifier = bundleIdentifier();
  return send(script({"set global config \"", escapeForScript(value), "\" action bundle id \"", identifier, "\""}));
}

APIResult<std::string> DeskloomAPI::getConfig(std::string_view actionID) const {
  return ask(script({"get config \"", actionID, "\""}));
}

APIResult<void> DeskloomAPI::setConfig(std::string_view value, std::string_view actionID) const {
  return send(script({"set config \"", escapeForScript(value), "\" action \"", actionID, "\""}));
}

APIResult<std::string> DeskloomAPI::getPluginFolderPath() const {
  return ask(script({"get plugin folder path"}));
}

APIResult<std::optional<std::string>> DeskloomAPI::getPluginPath(std::string_view pluginName) const {
  return AppleScriptRunner::run(script({"get path of plugin \"", pluginName, "\""}));
}

APIResult<bool> DeskloomAPI::isPluginInstalled(std::string_view path) const {
  const auto reply = ask(script({"get is plugin installed at path \"", path, "\""}));
  if (!reply)
    return std::unexpected(reply.error());
  return *reply == "true";
}

APIResult<void> DeskloomAPI::installPlugin() const {
  return send(script({"install plugin"}));
}

std::string escapeForScript(std::string_view text) {
  // Backslashes first, so that those added before quotes are not doubled.
  return escaping(escaping(text, '\\'), '"');
}

}  // namespace DeskloomSDK

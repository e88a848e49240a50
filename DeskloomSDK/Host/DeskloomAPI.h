#pragma once

#include <expected>
#include <optional>
#include <string>
#include <string_view>

#include "Platform/Error.h"

namespace DeskloomSDK {

/// What the host has answered, or why there is no answer.
template <typename T>
using APIResult = std::expected<T, Platform::Error>;

/// The requests that the host understands, each sent as one script on the calling thread, which waits for the answer.
/// Every operation fails with the code-1 error where the script fails; those that need an answer fail with the code-2
/// error where the script gives no text. The two global operations stop the process where the bundle has no identifier.
class DeskloomAPI {
 public:
  DeskloomAPI() = default;
  DeskloomAPI(const DeskloomAPI&) = delete;
  DeskloomAPI& operator=(const DeskloomAPI&) = delete;
  virtual ~DeskloomAPI() = default;

  /// The plug-in's own configuration text.
  [[nodiscard]] virtual APIResult<std::string> getGlobalConfig() const;
  /// Stores the plug-in's own configuration text.
  [[nodiscard]] virtual APIResult<void> setGlobalConfig(std::string_view value) const;
  /// The configuration text of an action.
  [[nodiscard]] virtual APIResult<std::string> getConfig(std::string_view actionID) const;
  /// Stores the configuration text of an action.
  [[nodiscard]] virtual APIResult<void> setConfig(std::string_view value, std::string_view actionID) const;
  /// Where the host keeps its plug-ins.
  [[nodiscard]] virtual APIResult<std::string> getPluginFolderPath() const;
  /// Where the plug-in of this name lies; none where the host gives no text.
  [[nodiscard]] virtual APIResult<std::optional<std::string>> getPluginPath(std::string_view pluginName) const;
  /// Whether the plug-in at this path is installed: whether the host's answer is "true" to the letter.
  [[nodiscard]] virtual APIResult<bool> isPluginInstalled(std::string_view path) const;
  /// Asks the host to install this plug-in.
  [[nodiscard]] virtual APIResult<void> installPlugin() const;
};

/// `text` made safe for the inside of a script's string literal: every backslash and every double quote gets a
/// backslash in front of it. Nothing else changes.
std::string escapeForScript(std::string_view text);

}  // namespace DeskloomSDK

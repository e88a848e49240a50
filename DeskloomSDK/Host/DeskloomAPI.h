#pragma once

#include <expected>
#include <optional>
#include <string>
#include <string_view>

#include "Platform/Error.h"

namespace DeskloomSDK {

/// The host's answer, or the reason why there is none.
template <typename T>
using APIResult = std::expected<T, Platform::Error>;

/// The requests that the host understands. Each is sent as one script, and the calling thread waits for the answer.
/// Every operation fails with the code-1 error if the script fails. An operation that needs an answer fails with the
/// code-2 error if the script yields no text. The two global operations stop the process if the bundle has no
/// identifier.
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
  /// The path of the folder in which the host keeps its plug-ins.
  [[nodiscard]] virtual APIResult<std::string> getPluginFolderPath() const;
  /// The path of the plug-in of this name; `nullopt` if the host yields no text.
  [[nodiscard]] virtual APIResult<std::optional<std::string>> getPluginPath(std::string_view pluginName) const;
  /// Whether the plug-in at this path is installed: whether the host's answer is exactly "true".
  [[nodiscard]] virtual APIResult<bool> isPluginInstalled(std::string_view path) const;
  /// Asks the host to install this plug-in.
  [[nodiscard]] virtual APIResult<void> installPlugin() const;
};

/// `text` as it is written inside a script's string literal: with a backslash before every backslash and every double
/// quote.
std::string escapeForScript(std::string_view text);

}  // namespace DeskloomSDK

#pragma once

#include <optional>
#include <string>

#include "Platform/Text/URL.h"

namespace DeskloomSDK {

/// A launch URL, with which the host asks a plug-in to do something:
///
///     deskloomplugin://<action>
///     deskloomplugin://<action>/<actionID>
class DeskloomPluginURL {
 public:
  /// Reads a launch URL. `nullopt` if the scheme is not exactly "deskloomplugin" or the URL has no host.
  static std::optional<DeskloomPluginURL> parse(const Platform::URL& url);

  /// Always "deskloomplugin".
  [[nodiscard]] const std::string& scheme() const { return scheme_; }
  /// The URL's host, its case unchanged. It may be an unknown action.
  [[nodiscard]] const std::string& action() const { return action_; }

  /// The path segment after the host; `nullopt` if there is none or more than one. May be changed.
  std::optional<std::string> actionID;

 private:
  DeskloomPluginURL(std::string action, std::optional<std::string> actionIdentifier);

  std::string scheme_;
  std::string action_;
};

}  // namespace DeskloomSDK

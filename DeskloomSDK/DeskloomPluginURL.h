#pragma once

#include <optional>
#include <string>

#include "Platform/URL.h"

namespace DeskloomSDK {

/// A launch URL, by which the host asks a plug-in to do something:
///
///     deskloomplugin://<action>
///     deskloomplugin://<action>/<actionID>
struct DeskloomPluginURL {
  /// Reads a launch URL. None where the scheme is not "deskloomplugin" to the letter or the URL has no host.
  static std::optional<DeskloomPluginURL> parse(const Platform::URL& url);

  /// Always "deskloomplugin".
  std::string scheme;
  /// The URL's host, its case kept; not held against any list of actions.
  std::string action;
  /// The one path segment behind the host; none where there is none, or more than one.
  std::optional<std::string> actionID;
};

}  // namespace DeskloomSDK

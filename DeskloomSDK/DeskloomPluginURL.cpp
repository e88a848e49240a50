#include "DeskloomSDK/DeskloomPluginURL.h"

#include <string_view>
#include <utility>

namespace DeskloomSDK {

namespace {

constexpr std::string_view launchScheme = "deskloomplugin";

std::optional<std::string> segmentAfterHost(const Platform::URL& url) {
  auto components = url.pathComponents();
  // The leading slash is a component of its own, so /ID counts as two.
  if (components.size() != 2)
    return std::nullopt;
  return std::move(components[1]);
}

}  // namespace

DeskloomPluginURL::DeskloomPluginURL(std::string action, std::optional<std::string> actionIdentifier)
    : actionID(std::move(actionIdentifier)), scheme_(launchScheme), action_(std::move(action)) {}

std::optional<DeskloomPluginURL> DeskloomPluginURL::parse(const Platform::URL& url) {
  if (url.scheme() != launchScheme)
    return std::nullopt;
  auto host = url.host();
  if (!host)
    return std::nullopt;
  return DeskloomPluginURL(std::move(*host), segmentAfterHost(url));
}

}  // namespace DeskloomSDK
